// Every page of the help: there, whole, and at one with the program.
#include <gtest/gtest.h>

#include "tests/help_pages/page.h"

namespace kavr6 {
namespace {

TEST(HelpPages, AreWellFormedAndNamedAsTheirHeading) {
  EXPECT_FALSE(PageNames().empty());
  for (const std::string& name : PageNames()) {
    const Page& page = HelpPage(name);
    EXPECT_EQ(page.fault, "") << name;
    EXPECT_NE(page.title, "") << name;
    EXPECT_EQ(page.title, page.heading) << name;
  }
}

}  // namespace
}  // namespace kavr6
