#include "online/notebook_contents.h"

#include <gtest/gtest.h>

#include "service_samples.h"

namespace quill::online {
namespace {

using namespace quill::samples;

TEST(NotebookContents, ListTheNotebooksAsTheServiceDoes) {
  const std::string begin = "<table border='0'><tr><td><h1>Notebooks</h1></td></tr><tr><td>";
  const std::string end = "</td></tr></table>";
  const std::string body =
      List({Entry("onenote:https://h/Z%20z", R"("displayName":"Z z","isDefault":true)"),
            R"({"displayName":"no links","links":null})", Entry("onenote:https://h/A", R"("id":7)")});
  EXPECT_EQ(GenerateTOCNotebooksHtml(body, "Notebooks"),
            begin +
                "\n<p>- <a href=\"onenote:https://h/Z%20z\">Z z</a></p>\n<p>- <a href=\"\">no links</a></p>" +
                "\n<p>- <a href=\"onenote:https://h/A\"></a></p>" + end);
  EXPECT_EQ(GenerateTOCNotebooksHtml(R"({"error":{"code":"20112"}})", "Notebooks"), begin + end);
  EXPECT_EQ(GenerateTOCNotebooksHtml("", "Notebooks"), "");
}

}  // namespace
}  // namespace quill::online
