#include "config_file/config_files.h"

#include <limits>

#include <gtest/gtest.h>

#include "tests/support/scene.h"

namespace kavr6 {
namespace {

constexpr auto Load = FileDialog::Purpose::Open;
constexpr auto Save = FileDialog::Purpose::Save;
constexpr const char* kName = "/anlagen/s\u00FCd/kran.cnf";
constexpr const char* kFolder = "/anlagen/s\u00FCd";
constexpr const char* kWanted = "Configurator Files|*.cnfcnf";
constexpr const char* kTitle = "KAVR6 Configurator  V1.0 - ";

const MessageBox kReplaceQuestion{
    "You have made changes without Saving or Downloading.  Do you really want to open a file and replace "
    "your "
    "program?",
    BoxIcon::Question, "Open", BoxButtons::OkCancel};

struct ConfigFilesTest : SceneTest {
  ConfigFilesTest() { files[kName] = SavedText(); }
  /// The file that the program would write now.
  std::string SavedText() {
    const bool modified = state.Modified;
    state.FileName = "/probe";
    main.MenuSave.Click();
    state.FileName = "";
    state.Modified = modified;
    return files.extract("/probe").mapped();
  }
  void Replace(const std::string& part, const std::string& by) {
    std::string& text = files[kName];
    ASSERT_NE(text.find(part), std::string::npos);
    text.replace(text.find(part), part.size(), by);
  }
  void Open(const std::string& box = {}) {
    scene.desktop.Expect(ExpectedFile{Load, kName});
    if (!box.empty()) scene.desktop.Expect(MessageBox{box});
    main.MenuOpen.Click();
  }
  void ExpectOpened() {
    EXPECT_EQ(main.Caption(), kTitle + std::string(kName));
    EXPECT_TRUE(state.FileName == kName && !state.Modified && state.InertiaSet);
  }

  std::map<std::string, std::string>& files = scene.files.content;
};

TEST_F(ConfigFilesTest, SaveAsksOnceForAName) {
  state.Modified = true;
  using Whole = std::int64_t;
  scene.table.Add({"KM50", "KM50x", 1.5, 2.5, Whole{3}, 4.5, Whole{2}, Whole{7}, Whole{8}, Whole{9},
                   Whole{10}, 11.5, 12.5, 13.5});
  scene.program.motorTable.Seek("KM50x");
  // What changes while the dialog stands open is saved too.
  scene.desktop.Expect(ExpectedFile{Save, kName, [&] { scene.settings.Speed = 12; }});
  main.MenuSave.Click();
  EXPECT_FALSE(state.Modified);
  EXPECT_EQ(main.Caption(), kTitle + std::string(kName));
  EXPECT_NE(files[kName].find("\r\n12,5,100"), std::string::npos);
  EXPECT_NE(
      files[kName].find(
          "\"KM50\", 1.5    2.5           3             4.5           2             7             8 \r\n"
          " 12.5          13.5 \r\n 9             10 \r\n 11.5 \r\n"),
      std::string::npos);
  state.Modified = true;
  scene.settings.Speed = 13;
  main.MenuSave.Click();
  EXPECT_NE(files[kName].find("\r\n13,5,100"), std::string::npos);
  scene.desktop.Expect(ExpectedFile{Save, ""});
  main.MenuSaveAs.Click();
  EXPECT_EQ(state.FileName, kName);
  const FileDialog& asked = scene.desktop.FileDialogs().at(1);
  EXPECT_EQ(asked.filter + asked.defaultExtension + asked.folder, kWanted + std::string(kFolder));
}

TEST_F(ConfigFilesTest, AFailedSaveKeepsTheOldFileAndTheChanges) {
  const std::string old = files[kName];
  const std::pair<const char*, std::function<void(bool)>> harms[] = {
      {"Disk full", [&](bool on) { scene.files.FailReplace = on; }},
      {"Overflow",
       [&](bool on) { scene.settings.Speed = on ? std::numeric_limits<double>::infinity() : 10; }},
      {"No current record.", [&](bool on) {
         scene.program.motorTable.MoveFirst();
         if (on) scene.program.motorTable.PartNumbers();
       }}};
  for (const auto& [words, harm] : harms) {
    state.Modified = true;
    harm(true);
    for (const bool saveAs : {true, false}) {
      state.FileName = saveAs ? "" : kName;
      state.TitleName = "as it was";
      if (saveAs) scene.desktop.Expect(ExpectedFile{Save, kName});
      scene.desktop.Expect(MessageBox{"Error saving file: " + std::string(words)});
      main.MenuSave.Click();
      EXPECT_EQ(main.Caption(), kTitle + std::string(saveAs ? kName : "as it was")) << words;
      EXPECT_EQ(state.FileName, saveAs ? "" : kName);
      EXPECT_TRUE(state.Modified);
      EXPECT_EQ(files[kName], old);
    }
    harm(false);
  }
}

TEST_F(ConfigFilesTest, OpenBringsTheWholeRecordBack) {
  scene.settings.OpMode = kOpHub;
  scene.settings.MaxVoltsPct = 94.5;
  main.ModelList.Select(5);
  main.CommList.Select(0);
  scene.program.motorTable.Seek("KM34-3S-670");
  files[kName] = SavedText();
  const Settings saved = scene.settings;
  InitVars(scene.settings);
  main.ModelList.Select(0);
  scene.program.MotorSetup.MotorList.SetListIndex(0);
  state.Modified = true;
  scene.desktop.Expect(kReplaceQuestion);
  Open();
  ExpectOpened();
  EXPECT_EQ(scene.settings, saved);
  EXPECT_EQ(main.ModelList.ListIndex(), 5);
  EXPECT_EQ(main.MotionDesc.Caption(), "Zulink Hub");
  EXPECT_EQ(main.Summary.Text(0, 0), "Motor: KM34-3S-670");
  EXPECT_EQ(program.Files.SaveFile.InitDir, kFolder);
}

TEST_F(ConfigFilesTest, OpenGivenUpOrImpossibleChangesNothing) {
  scene.settings.Speed = 44;
  const Settings before = scene.settings;
  state.Modified = true;
  for (const int step : {1, 2, 3}) {
    scene.desktop.Expect(kReplaceQuestion, step == 1 ? BoxAnswer::Cancel : BoxAnswer::Ok);
    if (step == 2) scene.desktop.Expect(ExpectedFile{Load, ""});
    if (step == 3) scene.desktop.Expect(ExpectedFile{Load, kName, [&] { files.clear(); }});
    if (step == 3) scene.desktop.Expect(MessageBox{"Error: could not open file."});
    main.MenuOpen.Click();
    EXPECT_EQ(scene.settings, before);
    EXPECT_EQ(main.Caption(), kTitle + std::string("untitled"));
    EXPECT_TRUE(state.FileName.empty() && state.Modified && !state.InertiaSet);
    EXPECT_NO_THROW(scene.desktop.CheckNothingLeft());
  }
}

TEST_F(ConfigFilesTest, AFileThatCannotBeReadToItsEndIsOpenedAllTheSame) {
  Replace("10,5,100", "31,5,100");
  const std::string good = files[kName];
  using Row = std::tuple<const char*, const char*, const char*, double, Long>;
  const Row cases[] = {
      {"0,1,1,21", "0,1,1", "Line 25, value 5: the file ends here", 31, 2},
      {"\r\n0\r\n3,3,1", "\r\n8\r\n3,3,1", "Line 20: there is no serial port with the index 8", 31, 2},
      {"1,\"; drive", "-2,\"; drive", "Line 2: there is no drive model with the index -2", 10, 3}};
  for (const auto& [part, by, words, speed, opMode] : cases) {
    files[kName] = good;
    Replace("7,3,0", "7,2,0");
    Replace(part, by);
    InitVars(scene.settings);
    state.InertiaSet = false;
    ShowModeName(state, scene.settings);
    Open("Error: couldn't read file.  " + std::string(words) + ".");
    ExpectOpened();
    EXPECT_EQ(scene.settings.Speed, speed) << words;
    EXPECT_EQ(scene.settings.OpMode, opMode) << words;
    EXPECT_EQ(main.MotionDesc.Caption(), "Pulse && Direction");
  }
}

TEST_F(ConfigFilesTest, AFileSelectsItsPort) {
  scene.comm.Connect(3, &scene.drive);
  Replace("\r\n0\r\n3,3,1", "\r\n2\r\n3,3,1");
  Open();
  ExpectOpened();
  EXPECT_EQ(state.CommNumber, 3);
  EXPECT_TRUE(scene.comm.PortOpen());
  // A port that is not there is told, and the reading goes on behind the box, whatever came in meanwhile.
  Replace("\r\n2\r\n3,3,1", "\r\n4\r\n3,3,2");
  scene.desktop.Expect(ExpectedFile{Load, kName});
  scene.desktop.Expect(ExpectedBox{
      MessageBox{"COM port 5 is not available.", BoxIcon::Exclamation, "COM Error"}, BoxAnswer::Ok, 2.0, [&] {
        scene.drive.Restart();
        scene.settings.LimitMode = 9;
        files.clear();
      }});
  main.MenuOpen.Click();
  ExpectOpened();
  EXPECT_EQ(state.CommNumber, 3);
  EXPECT_EQ(scene.settings.LimitMode, 2);
}

TEST_F(ConfigFilesTest, AnUnknownMotorJoinsTheTable) {
  Replace("\"KM17-1S-170\", 1.7 ", "\"KM99\", 2.5 ");
  for (int opened = 0; opened < 2; ++opened) {
    Open();
    EXPECT_EQ(scene.table.RowCount(), 4U);
    EXPECT_EQ(scene.program.MotorSetup.MotorList.Text(), "KM99");
    EXPECT_EQ(scene.program.motorTable.Row().Current, 2.5);
    EXPECT_FALSE(scene.program.motorTable.Row().R);
  }
  EXPECT_NE(SavedText().find("\r\n 0             0 \r\n 25 "), std::string::npos);  // R and L
}

}  // namespace
}  // namespace kavr6
