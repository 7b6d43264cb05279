// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/settings.h"

#include <gtest/gtest.h>

#include "store/failure.h"
#include "support/box_recorder.h"
#include "support/program_folder.h"

namespace dosmara {
namespace {

class SettingsTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"English", "Italiano"}) {
      folder_.Write(QString(name) + ".lng", name);
    }
  }

  void Own(const QByteArray& bytes) { folder_.Write("dosmara.ini", bytes); }
  void Launcher(const QByteArray& bytes) { folder_.Write("../dosmara.ini", bytes); }
  QByteArray OwnFile() { return folder_.Read("dosmara.ini"); }
  void Read() { ReadSettings(settings_); }

  void Expect(int port, const QString& language) {
    EXPECT_EQ(PortNumber, port);
    EXPECT_EQ(LanguageName, language);
    EXPECT_TRUE(settings_.mnuCox[port]);
  }

  ProgramFolder folder_;
  Settings settings_ = SettingsOf(folder_.program());
  BoxRecorder screen_;
};

TEST_F(SettingsTest, TakesPortAndLanguageOfTheOwnFile) {
  Own("Com=3\r\nLingua=English\r\n");
  Read();
  Expect(3, "English");
  EXPECT_EQ(OwnFile(), "Com=3\r\nLingua=English\r\n");
}

TEST_F(SettingsTest, TakesThePortFromTheLastCharacterAloneAsPrescribed) {
  Own("Com=12\nLingua=Italiano\n");
  Read();
  Expect(2, "Italiano");
}

TEST_F(SettingsTest, TakesTheLanguageBehindSevenCharactersWhateverTheyAreAsPrescribed) {
  Own("4\nxxxxxxxItaliano\n");
  Read();
  Expect(4, "Italiano");
}

TEST_F(SettingsTest, SetsPort1WhenBothFilesAreMissing) {
  Read();
  Expect(1, "");
  EXPECT_EQ(OwnFile(), "Com=1\nLingua=\n");
}

TEST_F(SettingsTest, PassesOverAnOwnFileThatIsDamaged) {
  for (const char* text : {"", "Com=3", "\n\n", "\x01\xFFgarbage"}) {
    SCOPED_TRACE(text);
    Own(text);
    settings_ = SettingsOf(folder_.program());
    Read();
    Expect(1, "");
    EXPECT_EQ(OwnFile(), "Com=1\nLingua=\n");
  }
}

TEST_F(SettingsTest, KeepsTheLanguageLineOfAnOwnFileWithoutAUsablePort) {
  for (const char* text : {"Com=\nLingua=English\n", "Com=3 \nLingua=English\n", "Com=0\nLingua=English\n",
                           "Com=5\nLingua=English\n", "Com=x\nLingua=English"}) {
    SCOPED_TRACE(text);
    Own(text);
    settings_ = SettingsOf(folder_.program());
    Read();
    Expect(1, "");
    EXPECT_EQ(OwnFile(), "Com=1\nLingua=English\n");
  }
}

TEST_F(SettingsTest, LetsTheLaunchersPortOverrideTheOwnAndRewritesTheOwnFile) {
  Own("Com=1\nLingua=Italiano\n");
  Launcher("Com=2\nLingua=Italiano\n");
  Read();
  Expect(2, "Italiano");
  EXPECT_EQ(OwnFile(), "Com=2\nLingua=Italiano\n");
  EXPECT_EQ(folder_.Read("../dosmara.ini"), "Com=2\nLingua=Italiano\n");
}

TEST_F(SettingsTest, LetsTheLaunchersLanguageOverrideTheOwn) {
  Own("Com=1\nLingua=Italiano\n");
  Launcher("Com=1\nLingua=English\n");
  Read();
  Expect(1, "English");
  EXPECT_TRUE(settings_.smnuLingue[0].ticked);
  EXPECT_EQ(OwnFile(), "Com=1\nLingua=English\n");
}

TEST_F(SettingsTest, IgnoresALauncherLanguageWithoutAFile) {
  Own("Com=1\nLingua=Italiano\n");
  Launcher("Com=1\nLingua=Deutsch\n");
  Read();
  Expect(1, "Italiano");
  EXPECT_EQ(OwnFile(), "Com=1\nLingua=Italiano\n");
}

TEST_F(SettingsTest, IgnoresALauncherFileThatIsDamaged) {
  for (const char* text : {"", "Com=2", "Com=\nLingua=English\n", "Com=7\nLingua=English\n"}) {
    SCOPED_TRACE(text);
    Own("Com=3\nLingua=Italiano\n");
    Launcher(text);
    settings_ = SettingsOf(folder_.program());
    Read();
    Expect(3, "Italiano");
    EXPECT_EQ(OwnFile(), "Com=3\nLingua=Italiano\n");
  }
}

TEST_F(SettingsTest, LeavesThePortToALauncherFileThatSetsNone) {
  Own("Com=3\nLingua=Italiano\n");
  Launcher("Com=0\nLingua=English\n");
  Read();
  Expect(3, "English");
}

TEST_F(SettingsTest, LeavesTheOwnFileAloneWhenBothAgree) {
  Own("Port=3\nIdioma=Italiano\n");
  Launcher("Com=3\nLingua=Italiano\n");
  Read();
  EXPECT_EQ(OwnFile(), "Port=3\nIdioma=Italiano\n");
}

TEST_F(SettingsTest, EndsTheProgramWithoutAnyLanguageFile) {
  QFile::remove(folder_.path() + "/English.lng");
  QFile::remove(folder_.path() + "/Italiano.lng");
  EXPECT_THROW(Read(), ProgramEnds);
  const Box expected = {"Reinstall program\nFile missing!", "Error", BoxStyle::kCritical};
  EXPECT_EQ(screen_.boxes, std::vector<Box>{expected});
}

TEST_F(SettingsTest, WritesPortAndTickedLanguageAsTheWholeFile) {
  Own("Com=1\nLingua=Italiano\nthird line\n");
  ListLanguages(folder_.path(), settings_.smnuLingue);
  settings_.smnuLingue[1].ticked = true;
  PortNumber = 4;
  WriteSettings(settings_);
  EXPECT_EQ(OwnFile(), "Com=4\nLingua=Italiano\n");
}

TEST_F(SettingsTest, WritesTheFirstLanguageWhenNoneIsTicked) {
  ListLanguages(folder_.path(), settings_.smnuLingue);
  PortNumber = 2;
  WriteSettings(settings_);
  EXPECT_EQ(OwnFile(), "Com=2\nLingua=English\n");
}

TEST_F(SettingsTest, KeepsTheNameOfAnOwnFileWrittenInCapitals) {
  folder_.Write("DOSMARA.INI", "Com=2\nLingua=Italiano\n");
  Read();
  Expect(2, "Italiano");
  WriteSettings(settings_);
  EXPECT_EQ(OwnFile(), "(none)");
}

TEST_F(SettingsTest, TellsARefusedWriteOnceAndGoesOn) {
  QDir(folder_.path()).mkdir("dosmara.ini");
  WriteSettings(settings_);
  WriteSettings(settings_);
  const Box expected = {"dosmara.ini\nThe settings cannot be saved", "Error", BoxStyle::kExclamation};
  EXPECT_EQ(screen_.boxes, std::vector<Box>{expected});
}

TEST_F(SettingsTest, CallsTheOwnFileAfterTheProgramFile) {
  EXPECT_EQ(SettingsOf("/opt/x/Service.EXE").program, "Service");
  EXPECT_EQ(SettingsOf("/opt/x/dosmara").program, "dosmara");
  EXPECT_EQ(SettingsOf("/opt/x/dosmara-1.0").program, "dosmara-1.0");
  EXPECT_EQ(SettingsOf("/opt/x/dosmara").folder, "/opt/x");
}

TEST_F(SettingsTest, ReadsTheOwnPortForTheSearch) {
  Own("Com=9\n");
  EXPECT_EQ(ReadOwnPort(settings_), 9);
}

TEST_F(SettingsTest, ReportsAMissingOwnFileToTheSearchAsFileNotFound) {
  try {
    ReadOwnPort(settings_);
    FAIL() << "was read";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), 53);
  }
}

TEST_F(SettingsTest, ReportsAnOwnFileWithoutAPortToTheSearch) {
  for (const char* text : {"", "Com=", "\nCom=1"}) {
    Own(text);
    EXPECT_THROW(ReadOwnPort(settings_), RunTimeError);
  }
}

TEST_F(SettingsTest, WritesPort1AloneAsTheDefault) {
  WriteDefaultPort(settings_);
  EXPECT_EQ(OwnFile(), "Com=1\n");
  QFile::remove(folder_.path() + "/dosmara.ini");
  QDir(folder_.path()).mkdir("dosmara.ini");
  WriteDefaultPort(settings_);
  EXPECT_TRUE(screen_.boxes.empty());
}

}  // namespace
}  // namespace dosmara
