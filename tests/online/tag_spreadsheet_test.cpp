#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "online/tag_export.h"
#include "service_samples.h"
#include "shell/temporary_folder.h"

namespace quill::online {
namespace {

using namespace quill::samples;

/// The file as a spreadsheet program reads it: its cells, written by that program with tabs between them, all
/// in quotes. Nothing when the program did not run.
std::optional<std::string> ReadBySpreadsheet(const std::filesystem::path& folder, const std::string& csv) {
  std::ofstream(folder / "tags.csv") << csv;
  const std::string quoted = "'" + folder.string();
  const std::string command = "soffice '-env:UserInstallation=file://" + folder.string() +
                              "/profile' --headless '--infilter=CSV:44,34,76,1,1/2/2/2/3/2/4/2' --convert-to "
                              "'csv:Text - txt - csv (StarCalc):9,34,76,1,,0,true,true,false' --outdir " +
                              quoted + "/read' " + quoted + "/tags.csv' > " + quoted + "/log' 2>&1";
  if (std::system(command.c_str()) != 0) return std::nullopt;
  std::ostringstream read;
  read << std::ifstream(folder / "read" / "tags.csv").rdbuf();
  return read.str();
}

// The file is made to be opened in a spreadsheet: every line is a row of four cells with the text as it was.
TEST(TagSpreadsheet, HasTheTextsOfThePageInItsCells) {
  if (std::system("command -v soffice > /dev/null 2>&1") != 0) GTEST_SKIP() << "no spreadsheet program";
  const test::TemporaryFolder folder;
  const auto csv = GenerateTags2Content(
      TagFormat::Csv,
      Page("<p id=\"p:{a1}{40}\" data-tag=\"to-do:completed\">Call Tom, then Ren\xC3\xA9"
           "e; it's 5\t%</p><p id=\"p:{a2}{41}\" data-tag=\"question\">=1+1</p>"
           "<p id=\"p:{a3}{42}\" data-tag=\"idea\">007 </p><p id=\"p:{a4}{43}\" data-tag=\"contact\"></p>"),
      kLink);
  ASSERT_TRUE(csv.ok());
  const std::optional<std::string> cells = ReadBySpreadsheet(folder.path(), *csv);
  ASSERT_TRUE(cells);
  const std::string link = std::string("\"") + kParagraph;
  EXPECT_EQ(*cells,
            "\"1\"\t\"to-do\"\t\"Call Tom, then Ren\xC3\xA9"
            "e; it's 5\t%\"\t" +
                link + "{a1}&28\"\n\"0\"\t\"question\"\t\"=1+1\"\t" + link +
                "{a2}&29\"\n\"0\"\t\"idea\"\t\"007 \"\t" + link + "{a3}&2A\"\n\"0\"\t\"contact\"\t\t" + link +
                "{a4}&2B\"\n");
}

}  // namespace
}  // namespace quill::online
