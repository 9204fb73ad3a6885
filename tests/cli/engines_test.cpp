#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "platform/web_server.h"
#include "quill_program.h"

namespace quill::cli {
namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kCode = "#include <vector>\nint main() { return 0; }  // <done>\n";

class Engines : public Quill {
 protected:
  /// What was left where temporary files go.
  bool LeavesNothing() { return fs::is_empty(m_folder / "tmp"); }

  /// A program of the test's own instead of the real one.
  void WriteProgram(const std::string& name, const std::string& script) {
    Write(name, "#!/bin/sh\n" + script);
    fs::permissions(m_folder / name, fs::perms::owner_all);
  }
};

// The whole way with the real highlighter: flags override this user's settings, each way round.
TEST_F(Engines, HighlightsCode) {
  Run("settings set Syntax_FontSize 17");
  EXPECT_THAT(Run("highlight --lang c#", kCode).out, HasSubstr("<table border=1 bgcolor='#FFFFFF'>"));
  const Output plain = Run("highlight --lang 'c AND c++' --no-frame", kCode);
  EXPECT_EQ(plain.status, 0) << plain.err;
  EXPECT_THAT(plain.out, AllOf(HasSubstr("&lt;done&gt;"), HasSubstr("font-size:17pt"), HasSubstr("color:#"),
                               Not(HasSubstr("<table"))));
  const Output framed =
      Run("highlight --lang 'C and C++' --theme vim --font 'Fira Code' --size 9 --line-numbers --bold "
          "--shading '#abcdef' --in in --out page.html",
          kCode);
  EXPECT_EQ(framed.status, 0) << framed.err;
  EXPECT_EQ(framed.out, "");
  EXPECT_THAT(File("page.html"), AllOf(HasSubstr("#abcdef"), HasSubstr("<table"), HasSubstr("Fira Code"),
                                       HasSubstr("font-size:9pt"), HasSubstr("<b>")));
  EXPECT_TRUE(LeavesNothing());
}

// A script that does not know what it colours says so; what cannot be told is not guessed.
TEST_F(Engines, DetectsTheLanguage) {
  const std::string python = "#!/usr/bin/env python3\ndef f(x):\n    return None\n";
  EXPECT_EQ(Run("highlight --lang auto", python).out, Run("highlight --lang python", python).out);
  const Output unsure = Run("highlight --lang auto", "hello\n");
  EXPECT_EQ(unsure.status, 1);
  EXPECT_THAT(unsure.err, HasSubstr("--lang"));
}

// Another highlighter can be set; one that is not there is told, and the usual one is used.
TEST_F(Engines, FollowsTheHighlighterSetting) {
  WriteProgram("mine",
               "while [ $# -gt 0 ]; do [ \"$1\" = -o ] && echo '<body>mine</body>' >\"$2\"; shift; done");
  Run("settings set HighlighterPath \"$PWD/mine\"");
  EXPECT_THAT(Run("highlight --lang c#", kCode).out, HasSubstr("mine"));
  EXPECT_THAT(Run("doctor").out, HasSubstr("mine, as the setting HighlighterPath says"));
  fs::permissions(m_folder / "mine", fs::perms::owner_read);
  const Output other = Run("highlight --lang c#", kCode);
  EXPECT_EQ(other.status, 0);
  EXPECT_THAT(other.out, Not(HasSubstr("mine")));
  EXPECT_THAT(other.err, HasSubstr("HighlighterPath names no program"));
  EXPECT_THAT(Run("doctor").out, AllOf(HasSubstr("-- highlight"), HasSubstr("espeak-ng")));
  WriteProgram("mine", "echo 'no such syntax' >&2; exit 1");
  const Output failed = Run("highlight --lang c#", kCode);
  EXPECT_EQ(failed.status, 1);
  EXPECT_THAT(failed.err, HasSubstr("no such syntax"));
  EXPECT_TRUE(LeavesNothing());
}

// Where equations get MathJax from: the files beside the program, wherever that stands, or what is set.
TEST_F(Engines, DoctorFindsMathJax) {
  const fs::path folder = fs::canonical(m_folder) / "moved";
  const fs::path files = folder / "share/quillmenu/mathjax";
  fs::create_directories(folder / "bin");
  fs::copy_file(QUILL_PROGRAM, folder / "bin/quill");
  m_program = (folder / "bin/quill").string();
  EXPECT_THAT(Run("doctor").out, ContainsRegex("-- MathJax +not installed; .*npm"));
  for (const char* name : {"mathjax2/MathJax.js", "mathjax3/es5/tex-svg.js"}) {
    fs::create_directories((files / name).parent_path());
    std::ofstream(files / name) << "//";
  }
  EXPECT_THAT(Run("doctor").out, ContainsRegex("ok MathJax +" + files.string()));
  Run("settings set MathJaxAddress https://example.org");
  EXPECT_THAT(Run("doctor").out, ContainsRegex("ok MathJax +https://example.org, as the setting"));
}

// The transcription alone on standard output, for a pipe; that nobody looked it up goes to standard error.
TEST_F(Engines, PronouncesWords) {
  const Output english = Run("phonetics hello");
  EXPECT_EQ(english.status, 0) << english.err;
  EXPECT_THAT(english.out, AllOf(HasSubstr("h"), HasSubstr("l"), testing::EndsWith("\n")));
  EXPECT_THAT(english.err, HasSubstr("speech synthesizer"));
  Run("settings set Phonetics_Language Chinese");
  EXPECT_EQ(Run("phonetics 中文").out, "zhōng wén\n");
  Run("settings set Phonetics_Transliteration false");
  EXPECT_EQ(Run("phonetics 中文").status, 1) << "a source that is switched off";
  Run("settings set Phonetics_Transliteration true");
  const Output none = Run("phonetics 東京 --language japanese --json");
  EXPECT_EQ(none.status, 1);
  const auto json = nlohmann::json::parse(none.out);
  EXPECT_EQ(json["phonetic"], "");
  EXPECT_EQ(json["source"], "none");
  EXPECT_EQ(json["dictionary"], nullptr);
  EXPECT_EQ(json["problems"].size(), 1u);
  EXPECT_THAT(none.err, HasSubstr("No phonetic transcription"));
}

// A dictionary that is configured is asked before anything else, and named; one that fails is told.
TEST_F(Engines, AsksConfiguredDictionaries) {
  test::WebServer server;
  server.pages.Get("/dicts/de/.*", [](const httplib::Request&, httplib::Response& response) {
    response.set_content("<span class=\"Phonitic\">[vɔʁt]</span>", "text/html");
  });
  server.Start();
  const std::string name = server.address().substr(7);
  ::setenv("QUILL_DICTIONARY_GERMAN_URL", server.address().c_str(), 1);
  const Output found = Run("phonetics Wort --language German --json");
  server.Stop();
  const Output refused = Run("phonetics Wort --language German --json");
  ::unsetenv("QUILL_DICTIONARY_GERMAN_URL");
  EXPECT_EQ(found.err, "");
  const auto json = nlohmann::json::parse(found.out);
  EXPECT_EQ(json["word"], "Wort");
  EXPECT_EQ(json["language"], "German");
  EXPECT_EQ(json["phonetic"], "vɔʁt");
  EXPECT_EQ(json["source"], "dictionary");
  EXPECT_EQ(json["dictionary"], name);
  const auto problems = nlohmann::json::parse(refused.out);
  EXPECT_EQ(problems["source"], "synthesizer");
  EXPECT_EQ(problems["problems"][0]["dictionary"], name);
  EXPECT_EQ(problems["problems"][0]["reason"], "The server does not accept connections.");
}

// A wrong call ends with what there is to choose from, before any program is run.
TEST_F(Engines, RefusesWrongCalls) {
  struct BadCall {
    const char* words;
    int status;
    const char* said;
  };
  const BadCall calls[] = {
      {"highlight", 2, "--lang"},
      {"highlight --lang klingon", 2, "C and C++, C#"},
      {"highlight --lang c# --theme pink", 2, "Visual Studio"},
      {"highlight --lang c# --size 0", 2, "--size"},
      {"highlight --lang c# --size 1.5", 2, "--size"},
      {"highlight --lang c# --size 9e9", 2, "--size"},
      {"highlight --lang c# --shading red", 2, "#RRGGBB"},
      {"highlight --lang c# --in missing", 2, "missing"},
      {"highlight --lang c# --out result", 1, "no code"},
      {"phonetics", 2, "word"},
      {"phonetics ' '", 2, "empty"},
      {"phonetics \"$(printf '\\351')\"", 2, "UTF-8"},
      {"phonetics a --language Klingon", 2, "French, German"},
  };
  for (const BadCall& call : calls) {
    const Output output = Run(call.words);
    EXPECT_EQ(output.status, call.status) << call.words << "\n" << output.err;
    EXPECT_THAT(output.err, HasSubstr(call.said)) << call.words;
    EXPECT_EQ(output.out, "") << call.words;
  }
  EXPECT_FALSE(fs::exists(m_folder / "result"));
}

}  // namespace
}  // namespace quill::cli
