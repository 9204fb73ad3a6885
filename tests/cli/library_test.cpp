#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "quill_program.h"

namespace quill::cli {
namespace {

using testing::HasSubstr;

constexpr const char* kLink =
    "onenote:https://d.docs.live.net/7c/N/Caf%C3%A9.one#Plan%20B&section-id={S-1}&page-id={P-1}&end";

nlohmann::json Json(const Output& output) {
  return nlohmann::json::parse(output.out, nullptr, false);
}

// The two lists as scripts use them, from the first call on a fresh root to the last one removed.
TEST_F(Quill, KeepsFavourites) {
  EXPECT_EQ(Json(Run("favourites pages list --json")), nlohmann::json::array());
  EXPECT_FALSE(fs::exists(m_folder / "root")) << "a look makes no folders";
  const Output added = Run("favourites pages add 'https://web\r\n" + std::string(kLink) + "\r\n'");
  EXPECT_EQ(added.status, 0) << added.err;
  EXPECT_EQ(Run("favourites sections add '" + std::string(kLink) + "'").status, 0);
  const nlohmann::json page = {{"id", "P-1"}, {"title", "Plan B"}, {"link", kLink}};
  EXPECT_EQ(Json(Run("favourites pages list --json")), nlohmann::json::array({page}));
  EXPECT_EQ(Run("favourites sections list").out, "S-1  Caf\u00e9\n");
  EXPECT_EQ(Run("favourites pages remove P-1").status, 0);
  EXPECT_EQ(Run("favourites pages list").out, "");
  EXPECT_EQ(Run("favourites sections list").out, "S-1  Caf\u00e9\n");
}

// What is not there, and what is no link, is a wrong call that is named; without the application nothing
// opens.
TEST_F(Quill, RefusesWrongFavourites) {
  for (const char* words : {"favourites pages remove nothing", "favourites sections open nothing"}) {
    const Output refused = Run(words);
    EXPECT_EQ(refused.status, 2) << words;
    EXPECT_THAT(refused.err, HasSubstr("\"nothing\"")) << words;
  }
  for (const char* words :
       {"favourites pages add https://web",
        "favourites sections add 'onenote:https://h/a.one#b&page-id={P}&end'", "favourites pages add ''",
        "favourites", "favourites pages", "favourites books list"})
    EXPECT_EQ(Run(words).status, 2) << words;
  ASSERT_EQ(Run("favourites pages add '" + std::string(kLink) + "'").status, 0);
  const Output closed = Run("favourites pages open P-1");
  EXPECT_EQ(closed.status, 1);
  EXPECT_THAT(closed.err, HasSubstr("is not running"));
}

// A template made by a script is the one that the menu lists: the same head, tail and pictures inside.
TEST_F(Quill, KeepsTemplates) {
  EXPECT_EQ(Json(Run("templates list --json")), nlohmann::json::array());
  Write("pic.png", "\x89PNG");
  const std::string html = "<html><head><b/></head><!--StartFragment--><p>a<br><img src=\"file://" +
                           m_folder.string() + "/pic.png\"></p><!--EndFragment--></html>";
  const Output saved = Run("templates save 'Weekly review'", html);
  EXPECT_EQ(saved.status, 0) << saved.err;
  EXPECT_EQ(saved.out + saved.err, "");
  EXPECT_EQ(Run("templates save b --in in --fragment", "<p>b</p>").status, 0);
  EXPECT_EQ(Run("templates save c", "<p>c</p>").status, 2) << "an empty template instead of the input";
  EXPECT_EQ(Run("templates list").out, "b\nWeekly review\n");
  fs::create_directory(m_folder / "exported");
  ASSERT_EQ(Run("templates export exported").out, "2 copied, 0 there already\n");
  EXPECT_EQ(File("exported/Weekly review.htm"),
            "<html><head><b/></head><p>a<br/><img src=\"data:image/png;base64,iVBORw==\"/></p></html>");
  EXPECT_EQ(Run("templates delete b").status, 0);
  EXPECT_EQ(Run("templates import exported").out, "1 copied, 1 there already\n");
  EXPECT_EQ(Run("templates list").out, "b\nWeekly review\n");
}

// Names are never paths, and nothing is said to be done that was not.
TEST_F(Quill, RefusesWrongTemplates) {
  for (const char* name : {"../x", "''", "a.htm", "a/b"}) {
    const Output refused = Run(std::string("templates save ") + name, "<p>a</p>");
    EXPECT_EQ(refused.status, 2) << name;
    EXPECT_THAT(refused.err, HasSubstr("cannot be the name")) << name;
  }
  for (const char* words : {"templates delete gone", "templates insert gone"}) {
    const Output refused = Run(words);
    EXPECT_EQ(refused.status, 2) << words;
    EXPECT_THAT(refused.err, HasSubstr("\"gone\"")) << words;
  }
  EXPECT_EQ(Run("templates export /no/such/folder").status, 2);
  EXPECT_EQ(Run("templates save a", "<!--StartFragment--><p>a<!--EndFragment-->").status, 1)
      << "not well-formed";
  EXPECT_EQ(Run("templates list").out, "");
  EXPECT_EQ(Run("run 8 --in in", "<p>a</p>").status, 2);
}

}  // namespace
}  // namespace quill::cli
