#include "online/breadcrumb.h"

#include <gtest/gtest.h>

#include "online/notebook_export.h"
#include "service_samples.h"

namespace quill::online {
namespace {

using namespace quill::samples;

std::string Link(const std::string& link, const std::string& name) {
  return "<a href=\"" + link + "\">" + name + "</a>";
}

// Each step of the line opens what it names, also through groups, and with names that need escapes.
TEST(Breadcrumb, LeadsFromTheNotebookToThePage) {
  const std::string at = "onenote:https://h/7c/Documents/My%20Home",
                    plain = "onenote:https://h/7c/Documents/My Home";
  const std::string ids = "&section-id={5D}&page-id={8A}&end";
  for (const std::string slash : {"", "/"}) {
    const std::string notebooks = List({Entry(at + slash, R"("displayName":"Home","id":"0-ab-c!2")")});
    EXPECT_EQ(GenerateBreadcrumb(notebooks, at + "/Caf%C3%A9/2024/May%2025.one#A%2FB%2525" + ids),
              "&lt;&lt; " + Link(plain + slash, "Home") + " / " +
                  Link(plain + "/Caf\xC3\xA9", "Caf\xC3\xA9") + " / " +
                  Link(plain + "/Caf\xC3\xA9/2024", "2024") + " / " +
                  Link(plain + "/Caf\xC3\xA9/2024/May 25.one", "May 25") + " / " +
                  Link(plain + "/Caf\xC3\xA9/2024/May 25.one#A/B%25" + ids, "A/B%25") + " &gt;&gt;");
    EXPECT_EQ(GenerateBreadcrumb(notebooks, at + "/S.one#T" + ids),
              "&lt;&lt; " + Link(plain + slash, "Home") + " / " + Link(plain + "/S.one", "S") + " / " +
                  Link(plain + "/S.one#T" + ids, "T") + " &gt;&gt;");
  }
}

// "Home" must not take the pages of "Homework", and a notebook without a link none at all.
TEST(Breadcrumb, FindsTheNotebookOfThePage) {
  const std::string notebooks =
      List({Entry("", R"("displayName":"none")"), Entry("%FF", R"("displayName":"bytes")"),
            Entry("onenote:https://h/Home", R"("displayName":"Home")"),
            Entry("onenote:https://h/%48omework", R"("displayName":"Homework")"),
            Entry("onenote:https://h/Homework", R"("displayName":"twice")")});
  const std::pair<const char*, const char*> cases[] = {
      {"onenote:https://h/Home/a.one#x&", ">Home</a> /"},
      {"onenote:https://h/Hom%65", ">Home</a> /"},
      {"onenote:https://h/Homework/a.one#x&", ">Homework</a> /"},
      {"onenote:https://h/home/a.one#x&", ""},
      {"onenote:https://h/Homes/a.one#x&", ""},
      {"%FF", ""},
      {"", ""}};
  for (const auto& [page, name] : cases) {
    const auto line = GenerateBreadcrumb(notebooks, page);
    EXPECT_EQ(line.has_value(), *name != '\0') << page;
    EXPECT_THAT(line.value_or(""), testing::HasSubstr(name)) << page;
  }
  EXPECT_FALSE(GenerateBreadcrumb("", "onenote:https://h/Home/a.one"));
}

// The steps stay right where the notebook's name looks like a section's file.
TEST(Breadcrumb, TakesTheSectionInsideTheNotebook) {
  const auto line = GenerateBreadcrumb(List({Entry("onenote:https://h/my.one", R"("displayName":"N")")}),
                                       "onenote:https://h/my.one//G//S.one#T&");
  ASSERT_TRUE(line);
  EXPECT_TRUE(line->starts_with("&lt;&lt; " + Link("onenote:https://h/my.one", "N") + " / " +
                                Link("onenote:https://h/my.one/G", "G") + " / " +
                                "<a href=\"onenote:https://h/my.one//G//S.one\">"))
      << *line;
}

// The service's page takes "|" for "-" in ids; a name must not end at its own "&".
TEST(NotebookExport, OpensThePageOfTheNotebook) {
  const std::string notebooks =
      List({Entry("onenote:https://h/Home", R"("displayName":"R&D + é","id":"0-ab-c!2")")});
  EXPECT_EQ(NotebookExportAddress(notebooks, "onenote:https://h/Home/a.one", "https://w.example"),
            "https://w.example/notebooks/"
            "exportimport?auth=1&notebookId=0%7Cab%7Cc!2&notebookName=R%26D%20%2B%20%C3%A9");
  EXPECT_FALSE(NotebookExportAddress(notebooks, "onenote:https://h/Other/a.one", "https://w.example"));
}

}  // namespace
}  // namespace quill::online
