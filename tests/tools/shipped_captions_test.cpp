// SPDX-License-Identifier: GPL-3.0-or-later
// The language files that come with the tool.
#include <algorithm>
#include <map>
#include <sstream>

#include "data/caption_file.h"
#include "tools/table_test.h"

namespace dosmara {
namespace {

using Lines = std::vector<std::string>;

// Line 1 at index 1, as the forms count.
Lines ReadLanguage(const std::string& name) {
  std::istringstream stream(ReadWhole(std::string(PROGRAM_DATA) + "/" + name + ".lng"));
  Lines lines = {""};
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

// First and last of each run of lines that the established windows read. What any window shows is held by the
// test of every form.
constexpr int kEstablished[][2] = {
    {1, 45},    {47, 56},   {58, 81},   {86, 86},   {88, 113},  {115, 116}, {118, 119}, {121, 123},
    {127, 127}, {129, 140}, {142, 146}, {148, 152}, {154, 155}, {157, 161}, {163, 163}, {165, 171},
    {175, 177}, {180, 199}, {204, 206}, {210, 210}, {213, 214}, {219, 226}, {228, 228}, {230, 236},
    {240, 242}, {244, 254}, {256, 259}, {261, 269}, {274, 280}, {283, 328}, {330, 331}, {334, 335},
    {338, 393}, {395, 399}, {401, 401}, {403, 606}, {614, 625}, {641, 650}};

bool IsMarker(const std::string& line) { return line.starts_with(";--"); }

// The languages that there are, each with the lines of its file.
std::map<std::string, Lines> Languages() {
  std::map<std::string, Lines> languages;
  for (const Language& language : ReadCaptions(CAPTIONS)) {
    languages[language.name] = ReadLanguage(language.name);
  }
  return languages;
}

TEST(ShippedCaptions, ItalianAndEnglishAreAmongTheLanguages) {
  EXPECT_TRUE(Languages().contains("Italiano"));
  EXPECT_TRUE(Languages().contains("English"));
}

TEST(ShippedCaptions, AllLanguagesHaveAsManyLines) {
  for (const auto& [name, lines] : Languages()) {
    EXPECT_EQ(lines.size(), 651u) << name;
  }
}

TEST(ShippedCaptions, NoCaptionIsMissing) {
  for (const auto& [name, lines] : Languages()) {
    for (const auto& [first, last] : kEstablished) {
      for (int line = first; line <= last; ++line) {
        EXPECT_FALSE(lines.at(line).empty()) << name << " line " << line;
        EXPECT_FALSE(IsMarker(lines.at(line))) << name << " line " << line;
      }
    }
  }
}

TEST(ShippedCaptions, MarkersStandAtTheSameLinesOfAllLanguages) {
  const Lines italian = ReadLanguage("Italiano");
  EXPECT_GT(std::ranges::count_if(italian, IsMarker), 10);
  for (const auto& [name, lines] : Languages()) {
    for (std::size_t line = 1; line < italian.size(); ++line) {
      EXPECT_EQ(IsMarker(italian[line]), IsMarker(lines.at(line))) << name << " line " << line;
    }
  }
}

TEST(ShippedCaptions, AWordOfOneLanguageIsOneOfAll) {
  const Lines italian = ReadLanguage("Italiano");
  for (const auto& [name, lines] : Languages()) {
    for (std::size_t line = 1; line < italian.size(); ++line) {
      EXPECT_EQ(italian[line].empty(), lines.at(line).empty()) << name << " line " << line;
    }
  }
}

TEST(ShippedCaptions, CaptionsAreShortEnoughForTheirPlace) {
  for (const auto& [name, lines] : Languages()) {
    for (const std::string& line : lines) {
      EXPECT_LE(std::count_if(line.begin(), line.end(), [](char c) { return (c & 0xC0) != 0x80; }), 40)
          << name << ": " << line;
    }
  }
}

TEST(ShippedCaptions, SpeakTheWordsOfTheTrade) {
  const Lines lines = ReadLanguage("Italiano");
  const std::pair<int, const char*> words[] = {{2, "Esci"},
                                               {3, "Tempi/Dosi"},
                                               {13, "Associazione prezzi settori zeth 2"},
                                               {21, "Cancella i dati"},
                                               {48, "Timeout gruppo"},
                                               {53, "Timeout carico"},
                                               {62, "Includi Bricco ?"},
                                               {65, "No"},
                                               {66, "Sì"},
                                               {68, "acqua caffè"},
                                               {74, "acqua tè"},
                                               {81, "ritardo decaff"},
                                               {95, "ECS differenziato"},
                                               {96, "Normale"},
                                               {98, "Price holding"},
                                               {109, "Off"},
                                               {110, "On"},
                                               {112, "ingnora e c"},
                                               {127, "Prezzo set."},
                                               {155, "Bev."},
                                               {163, "Contatore moneta"},
                                               {165, "importo inserito nei tubi "},
                                               {170, "importo caricato dalla chiave"},
                                               {177, "Cancella dati Non Azzerabili"},
                                               {180, "Decaffeinato"},
                                               {193, "Credito permanete"},
                                               {198, "NTC Zeth dal master"},
                                               {219, "Abil.sens.zeth "},
                                               {225, "quarta scatola"},
                                               {233, "Sanitarizzazione HCCP"},
                                               {241, "Codice vendite"},
                                               {245, "Termperatura caldaia"},
                                               {253, "Offset temperatura"},
                                               {319, "Avvia TEST"},
                                               {321, "Normale"},
                                               {330, "Set zero motori"},
                                               {399, "Ultimi 10 allarmi rilevati"},
                                               {403, "Allarme 000"},
                                               {606, "Allarme 203"},
                                               {616, "GRUPPO =>"},
                                               {622, "T. Erog. Caffè"},
                                               {624, "Gratis ?"},
                                               {625, "Timeout Credito Overpay"}};
  for (const auto& [line, text] : words) {
    EXPECT_EQ(lines.at(line), text) << "line " << line;
  }
}

}  // namespace
}  // namespace dosmara
