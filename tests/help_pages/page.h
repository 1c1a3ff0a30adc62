// The help's pages as the build has written them, read strictly as XML.
#pragma once

#include <QDomElement>
#include <string>
#include <vector>

namespace kavr6 {

using Texts = std::vector<std::string>;
/// The cells of each row, in order.
using Rows = std::vector<Texts>;

/// Names of all pages, such as "contact us.html". Fails the test if one is not well-formed.
const Texts& PageNames();

/// All elements of this name, in order; "*": of any name. Fails the test if there is no such page.
std::vector<QDomElement> Elements(const std::string& page, const char* name);
/// The attribute of all elements of this name that have it.
Texts Attributes(const std::string& page, const char* element, const char* attribute);

/// What a person reads in it; blanks run together, none at the ends.
std::string TextOf(const QDomElement& element);
/// Rows of a table without its headings. Fails the test if there is no such page or table.
Rows TableRows(const std::string& page, const std::string& table);

}  // namespace kavr6
