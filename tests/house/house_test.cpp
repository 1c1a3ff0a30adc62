#include "tests/house/house.h"

#include <gtest/gtest.h>

namespace kavr6::house {
namespace {

using Sentences = std::vector<std::string>;

TEST(House, EveryTargetIncludesWhatItDeclaresAndNothingElse) {
  const std::vector<Folder> house = ReadHouse(KAVR6_SOURCE, KAVR6_HOUSE);
  for (const std::string& complaint : Complaints(house, FilesOf(KAVR6_SOURCE, house)))
    ADD_FAILURE() << complaint;
  std::size_t includes = 0;
  for (const Folder& folder : house) includes += folder.includes.size();
  EXPECT_GT(includes, 500U) << "the sources were not read";
}

/// Low, low/inner and high, rightly declared; each test spoils something.
struct SmallHouse {
  std::vector<Folder> folders{
      {"low", {}, {{"low/a.h", "<string>"}, {"low/a.cpp", "\"low/a.h\""}}},
      {"low/inner", {"low"}, {{"low/inner/b.h", "\"low/a.h\""}}},
      {"apps/high",
       {"low/inner"},
       {{"apps/high/c.cpp", "\"low/inner/b.h\""}, {"apps/high/c.cpp", "<QString>"}}},
  };
  std::set<std::string> files{"low/a.h", "low/a.cpp", "low/inner/b.h", "apps/high/c.cpp", "apps/high/c.h"};
  Sentences Complaints() const { return house::Complaints(folders, files); }
};

TEST(House, RightHouseIsAccepted) { EXPECT_EQ(SmallHouse().Complaints(), Sentences()); }

TEST(House, WrongIncludesAreNamed) {
  const struct {
    std::size_t folder;
    Include include;
    Sentences complaints;
  } cases[]{
      {0,
       {"low/a.h", "\"low/inner/b.h\""},
       {"low/a.h includes \"low/inner/b.h\", but low does not declare low/inner"}},
      {0,
       {"low/a.h", "\"apps/high/c.h\""},
       {"low/a.h includes \"apps/high/c.h\", but low does not declare apps/high"}},
      // What a used folder uses is not declared by that.
      {2,
       {"apps/high/c.h", "\"low/a.h\""},
       {"apps/high/c.h includes \"low/a.h\", but apps/high does not declare low"}},
      {1, {"low/inner/b.h", "\"low/d.h\""}, {"low/inner/b.h includes \"low/d.h\", which does not exist"}},
      {1,
       {"low/inner/b.h", "\"lower/a.h\""},
       {"low/inner/b.h includes \"lower/a.h\", which belongs to no target"}},
      {1, {"low/inner/b.h", "\"b.h\""}, {"low/inner/b.h includes \"b.h\", which belongs to no target"}},
      {1, {"low/inner/b.h", "<QtGlobal>"}, {"low/inner/b.h includes <QtGlobal>, a toolkit's header"}},
      {0, {"low/a.cpp", "<sqlite3.h>"}, {"low/a.cpp includes <sqlite3.h>, a toolkit's header"}},
      {2, {"apps/high/c.cpp", "\"ui_C.h\""}, {}},
      {2, {"apps/high/c.cpp", "\"c.moc\""}, {}},
  };
  for (const auto& one : cases) {
    SmallHouse house;
    house.folders[one.folder].includes.push_back(one.include);
    EXPECT_EQ(house.Complaints(), one.complaints) << one.include.header;
  }
}

TEST(House, WrongDeclarationsAreNamed) {
  const struct {
    std::size_t folder;
    std::string declared;
    Sentences complaints;
  } cases[]{
      {0,
       "low/inner",
       {"low declares low/inner, which does not stand before it",
        "low declares low/inner but includes nothing of it"}},
      {2, "low", {"apps/high declares low but includes nothing of it"}},
      {1,
       "low/inner",
       {"low/inner declares low/inner, which does not stand before it",
        "low/inner declares low/inner but includes nothing of it"}},
      {2,
       "middle",
       {"apps/high declares middle, which does not stand before it",
        "apps/high declares middle but includes nothing of it"}},
  };
  for (const auto& one : cases) {
    SmallHouse house;
    house.folders[one.folder].uses.push_back(one.declared);
    EXPECT_EQ(house.Complaints(), one.complaints) << one.declared;
  }
}

TEST(House, WrongDirectionIsNamedEvenWhenItIsUsed) {
  SmallHouse house;
  house.folders[0].uses = {"low/inner"};
  house.folders[0].includes.push_back({"low/a.h", "\"low/inner/b.h\""});
  EXPECT_EQ(house.Complaints(), Sentences{"low declares low/inner, which does not stand before it"});
}

}  // namespace
}  // namespace kavr6::house
