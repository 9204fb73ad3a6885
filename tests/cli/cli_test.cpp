#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "quill_program.h"

namespace quill::cli {
namespace {

// The main job from a pipe: fragment in, fragment out.
TEST_F(Quill, RunsACommandOnAFragment) {
  EXPECT_EQ(Run("run 3 --in - --fragment", "<p lang=en>straße</p>").out, "<p lang=\"en\">STRASSE</p>");
  EXPECT_EQ(Run("run upper-case --in - --fragment", "<p>a</p>").out, "<p>A</p>");
  const Output whole = Run("run MenuItemUpperCaseClick --in -", "H<!--StartFragment-->a<!--EndFragment-->T");
  EXPECT_EQ(whole.out, "H<!--StartFragment-->A<!--EndFragment-->T");
  EXPECT_EQ(whole.status, 0);
}

// Scripts read the object: every field has to be there, null where nothing happened.
TEST_F(Quill, TellsEverythingAsJson) {
  const auto pasted = nlohmann::json::parse(Run("run 3 --in - --fragment --json", "<p>a</p>").out);
  EXPECT_EQ(pasted["command"], 3);
  EXPECT_EQ(pasted["result"], 1);
  EXPECT_EQ(pasted["pasted"]["replaceSelection"], true);
  EXPECT_TRUE(pasted["clipboard"].is_null());
  Write("plain", "a\u00A0b");
  const auto copied =
      nlohmann::json::parse(Run("run 24 --in - --fragment --text plain --json", "<p>a&nbsp;b</p>").out);
  EXPECT_EQ(copied["clipboard"]["text"], "a b");
  EXPECT_TRUE(copied["pasted"].is_null());
  const Output broken = Run("run 3 --in - --fragment --json", "a & b");
  EXPECT_EQ(nlohmann::json::parse(broken.out)["messages"][0], "Xml error!");
  EXPECT_EQ(broken.status, 1);
}

struct BadCall {
  const char* words;
  std::string input;
  int status;
  const char* said;
};

// The content tools from a script: the flags answer their dialogs, and nothing is remembered for the next
// time.
TEST_F(Quill, AnswersDialogsByFlags) {
  const std::string table = "<table><tr><td style='a:b'>1</td><td>2,5</td></tr></table>";
  EXPECT_EQ(Run("run 15 --style TStyleHeader2 --in - --fragment", table).out,
            "<table><tr><td style=\"background-color:#4F81BD\">1</td><td>2,5</td></tr></table>");
  EXPECT_EQ(Run("run 17 --mode commas --in - --fragment", table).out, "1,2,5\n");
  EXPECT_EQ(Run("run 17 --separator ';' --in - --fragment", table).out, "1;2,5\n");
  EXPECT_EQ(Run("run 19 --file table.csv --in - --fragment", table).status, 0);
  EXPECT_EQ(File("table.csv"), "1,\"2,5\"\n");
  Write("text", "a\nb\nc\n");
  const Output made = Run("run 18 --mode paragraphs --columns 2 --text text --in - --fragment", "<p>a</p>");
  EXPECT_THAT(made.out, testing::HasSubstr("<tr><td>a</td><td>b</td></tr><tr><td>c</td><td></td></tr>"));
  const Output clamped =
      Run("run 18 --mode paragraphs --columns 2 --rows 9999999 --text text --in - --fragment", "<p>a</p>");
  EXPECT_GT(clamped.out.size(), 8'000'000u);
  EXPECT_THAT(clamped.err, testing::HasSubstr("1000000"));
  EXPECT_EQ(Run("settings get TableStyle_SelectIndex").out, "1\n");
}

// Figures as lines to read and as an object to compute with.
TEST_F(Quill, PrintsFigures) {
  const std::string page = "<p>Hello, world</p><p><img src='a'></p>";
  EXPECT_THAT(Run("run 10 --in - --fragment", page).out,
              testing::HasSubstr("Characters (with spaces)\t12\n"));
  const auto json = nlohmann::json::parse(Run("run 10 --json --in - --fragment", page).out);
  EXPECT_EQ(json["data"]["Words"], 2);
  EXPECT_EQ(json["data"]["Images"], 1);
  EXPECT_TRUE(json["pasted"].is_null());
}

// Pictures from files and folders, in the order given; the text of a picture, step by step.
TEST_F(Quill, MakesImageTablesAndTidiesImageText) {
  fs::create_directories(m_folder / "pictures" / "inner");
  Write("pictures/inner/b.png", "B");
  Write("a.jpg", "A");
  const Output table = Run("image-table --names a.jpg pictures gone.png");
  EXPECT_THAT(table.out,
              testing::HasSubstr("<tr><td><img src=\"data:image/jpg;base64,QQ==\"></td><td>a.jpg</td></tr>"
                                 "<tr><td><img src=\"data:image/png;base64,Qg==\"></td>"));
  EXPECT_THAT(table.err, testing::HasSubstr("gone.png: not found"));
  EXPECT_EQ(table.status, 1);
  EXPECT_EQ(Run("image-text clean", "中 文 text").out, "中文 text");
  EXPECT_EQ(Run("image-text --html paragraphs", "<img alt=\"one&#13;&#10;two.\">").out, "one two.");
}

// A wrong call or wrong input ends with a reason that names the file or the word, and writes nothing.
TEST_F(Quill, RefusesBadInputWithAReason) {
  Write("nul", std::string("a\0b", 3));
  Write("latin1", "caf\xE9");
  const std::string deep = [] {
    std::string text;
    for (int i = 0; i < 100000; ++i) text += "<b>";
    return text;
  }();
  const BadCall calls[] = {
      {"run 3 --in - --fragment --out result", "<p>a</i>", 1, "Xml error!"},
      {"run 3 --in - --fragment --out result", deep, 1, "Xml error!"},
      {"run 3 --in latin1 --out result", "", 2, "latin1: not UTF-8 at offset 3"},
      {"run 3 --in nul --out result", "", 2, "nul: NUL byte at offset 1"},
      {"run 3 --in missing --out result", "", 2, "missing: No such file"},
      {"run 3 --in . --out result", "", 2, ".: is a folder"},
      {"run 3 --in huge --out result", "", 2, "huge: larger than"},
      {"run 4711 --in -", "", 2, "4711"},
      {"run uppercas --in -", "", 2, "MenuItemUpperCaseClick"},
      {"run 6 --in - --fragment", "<p>a</p>", 2, "--file"},
      {"run 11 --in - --fragment --out result", "<p>a</p>", 1, "Select a link"},
      {"run 15 --in - --fragment", "<table/>", 2, "--style"},
      {"run 15 --style 35 --in - --fragment --out result", "<table/>", 2, "\"35\""},
      {"run 16 --in - --fragment", "<p>a</p>", 1, "There is no table"},
      {"run 17 --in - --fragment --out result", "<table/>", 2, "--mode two-paragraphs|"},
      {"run 17 --mode other --in - --fragment", "<table/>", 2, "--separator"},
      {"run 17 --mode tabs --separator x --in - --fragment", "<table/>", 2, "--separator"},
      {"run 17 --mode rows --in - --fragment", "<table/>", 2, "\"rows\""},
      {"run 18 --mode tabs --in - --fragment", "<p/>", 2, "--text FILE"},
      {"run 18 --mode paragraphs --text missing --in - --fragment", "<p/>", 2, "missing"},
      {"run 3 --style 2 --in - --fragment --out result", "<p>a</p>", 2, "--style does not go with"},
      {"run 15 --style 2", "", 2, "--in FILE"},
      {"image-table missing.png --out result", "", 1, "missing.png: not found"},
      {"image-table", "", 2, "paths"},
      {"image-text scrub", "", 2, "\"scrub\""},
      {"run 3", "", 1, "not running"},
      {"trigger uppercas", "", 2, "MenuItemUpperCaseClick"},
      {"insert nonsense", "", 2, "nonsense"},
      {"insert date --now yesterday", "", 2, "yesterday"},
      {"insert calendar --month 13", "", 2, "13"},
      {"insert date --year 2026", "", 2, "--year"},
      {"insert year-calendar --month 2", "", 2, "--month"},
      {"title 16 --in -", "", 2, "16"},
      {"settings set Perform_Timeout soon", "", 2, "Perform_Timeout"},
      {"settings get NoSuchKey", "", 2, "NoSuchKey"},
      {"normalize", "<p>a", 1, "Xml error!"},
      {"denormalize", "<html/>", 2, "quillText"},
      {"frobnicate", "", 2, "frobnicate"},
      {"run 3 --in - --no-such-flag", "", 2, "--no-such-flag"},
      {"", "", 2, "subcommand"},
  };
  Write("huge", "");
  fs::resize_file(m_folder / "huge", 100u << 20);
  for (const BadCall& call : calls) {
    const Output output = Run(call.words, call.input);
    EXPECT_EQ(output.status, call.status) << call.words << "\n" << output.err;
    EXPECT_NE(output.err.find(call.said), std::string::npos) << call.words << "\n" << output.err;
    EXPECT_EQ(output.out, "") << call.words;
  }
  EXPECT_FALSE(fs::exists(m_folder / "result"));
  EXPECT_FALSE(fs::exists(m_folder / "root" / "local" / "Library" / "Application Support" / "Quillworks" /
                          "Quill Menu" / "quillapp.plist"));
}

// Text in, document out, and back to the same text.
TEST_F(Quill, NormalizesAndDenormalizes) {
  const std::string xml = Run("normalize", "<p>a<br>b&nbsp;c</p>").out;
  EXPECT_EQ(xml, "<?xml version=\"1.0\"?><quillText><p>a<br/>b\u00A0c</p></quillText>");
  EXPECT_EQ(Run("denormalize", xml).out, "<p>a<br/>b&nbsp;c</p>");
}

// Titles and dates without a screen, with the user's own patterns.
TEST_F(Quill, TitlesAndDates) {
  EXPECT_EQ(Run("title 3 --in -", "☑ ☐ Shopping\n").out, "♥ ☐ Shopping\n");
  EXPECT_EQ(Run("title ★ --in -", "x").status, 2);
  EXPECT_EQ(Run("title ⭐ --in -", "x").out, "⭐ x\n");
  EXPECT_EQ(Run("insert datetime --now 2026-11-15T08:30:00Z --fragment").out, "2026-11-15 08:30:00");
  EXPECT_EQ(Run("settings set DateFormat 'd. MMMM'").status, 0);
  EXPECT_EQ(Run("insert date --now 2026-11-15 --fragment").out, "15. November");
  EXPECT_EQ(Run("insert html --fragment", "<b>x</b>").out, "<b>x</b>");
  EXPECT_THAT(Run("insert calendar --year 2024 --month 2 --fragment").out,
              testing::AllOf(testing::HasSubstr("2024 - 2"), testing::HasSubstr(">29<"),
                             testing::Not(testing::HasSubstr(">30<"))));
  EXPECT_THAT(Run("insert year-calendar --now 2026-11-15 --fragment").out, testing::HasSubstr("2026 - 12"));
}

// Settings survive the process, also the owners' own; secrets are never printed.
TEST_F(Quill, KeepsSettings) {
  EXPECT_EQ(Run("settings get Perform_Timeout").out, "500000\n");
  EXPECT_EQ(Run("settings set Perform_Timeout 250000").status, 0);
  EXPECT_EQ(Run("settings set OneAppBackup_Last 20261115").status, 0);
  EXPECT_EQ(Run("settings set OnlineOneNoteAccessToken verysecret").status, 0);
  EXPECT_EQ(Run("settings get Perform_Timeout").out, "250000\n");
  EXPECT_EQ(Run("settings get OneAppBackup_Last").out, "20261115\n");
  const Output list = Run("settings list --json");
  EXPECT_EQ(list.out.find("verysecret"), std::string::npos);
  EXPECT_EQ(nlohmann::json::parse(list.out)["OnlineOneNoteAccessToken"], "(set)");
}

// The list is what scripts and the reference are made from.
TEST_F(Quill, ListsEveryAction) {
  const auto actions = nlohmann::json::parse(Run("list --json").out)["actions"];
  EXPECT_GT(actions.size(), 60u);
  EXPECT_NE(Run("list").out.find("UPPER CASE"), std::string::npos);
  EXPECT_NE(Run("doctor").out.find("settings"), std::string::npos);
  EXPECT_EQ(Run("--version").status, 0);
  EXPECT_NE(Run("run --help").out.find("--fragment"), std::string::npos);
}

// A bug report starts with these: steps and times go to standard error and never hold the page's text.
TEST_F(Quill, ExplainsWithoutPageContent) {
  const Output output = Run("--explain --stats run 3 --in - --fragment", "<p>private words</p>");
  EXPECT_NE(output.err.find("ChangeCase returned 1"), std::string::npos) << output.err;
  EXPECT_NE(output.err.find(" ms"), std::string::npos);
  EXPECT_EQ(output.err.find("private"), std::string::npos);
  EXPECT_EQ(output.err.find("PRIVATE"), std::string::npos);
}

}  // namespace
}  // namespace quill::cli
