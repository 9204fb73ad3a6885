// The table tools on a table that a browser shows: its clipboard has `tbody` and computed styles.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/atomic_file.h"
#include "platform/recording/recording.h"
#include "shell/content_requests.h"
#include "shell/onenote_main.h"
#include "shell/temporary_folder.h"
#include "x11/chromium_world.h"

namespace quill::x11_test {
namespace {

using testing::HasSubstr;

constexpr const char* kPage = R"html(<div id="sel"><div class="OutlineElement Ltr"><table border="1"><tbody>
<tr><td style="border:1px solid #a3a3a3"><p class="Paragraph"><span class="TextRun">Fruit</span></p></td>
<td style="border:1px solid #a3a3a3"><p class="Paragraph"><span class="TextRun">Price, net</span></p></td></tr>
<tr><td style="border:1px solid #a3a3a3"><p class="Paragraph"><span class="TextRun">Apple</span></p></td>
<td style="border:1px solid #a3a3a3"><p class="Paragraph"><span class="TextRun">1.20</span></p></td></tr>
</tbody></table></div></div><p>after</p>)html";

class BrowserTable : public testing::Test {
 protected:
  BrowserTable() { globals.scripts = shell::BuiltInScripts(); }

  void Run(std::int64_t command) {
    shell::Services services{
        backend->desktop(), backend->pasteboard(), screen, screen, clock, strings, explain, log};
    shell::NSOneNoteMain(services, globals).Run(command);
  }

  X11World world;
  std::unique_ptr<platform::x11::X11Backend> backend = world.Backend();
  platform::recording::Recording screen;
  platform::FixedClock clock{std::chrono::system_clock::time_point{}};
  shell::StringTable strings;
  shell::Explain explain;
  shell::Log log;
  shell::Globals globals;
};

// What OneNote for the web shows as a table is one for every tool; the restyled one takes its place on the
// page.
TEST_F(BrowserTable, EveryToolFindsRowsAndCells) {
  ChromiumWorld page(world, kPage);
  const test::TemporaryFolder folder;
  screen.AnswerSavePanel(folder.path() / "table.csv");
  Run(19);
  EXPECT_EQ(ReadFile(folder.path() / "table.csv").ValueOr(""), "Fruit,\"Price, net\"\nApple,1.20\n");

  Run(16);
  const auto& size = std::any_cast<const shell::CountRequest&>(screen.windows().back());
  ASSERT_EQ(size.rows.size(), 2u);
  EXPECT_EQ(size.rows[0].value, 2);
  EXPECT_EQ(size.rows[1].value, 2);

  screen.AnswerDialog<shell::Table2TextRequest>(shell::TableTextChoice{tools::TableTextMode::Tabs, ""});
  Run(17);
  EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), "Fruit\tPrice, net\nApple\t1.20");

  screen.AnswerDialog<shell::TableStyleRequest>(15);
  Run(15);
  const std::string dom = page.WaitForDom("#4F81BD");
  EXPECT_THAT(dom, HasSubstr("#4F81BD"));
  EXPECT_EQ(dom.find("Apple"), dom.rfind("Apple")) << "the table was replaced, not doubled";
  EXPECT_THAT(screen.messages(), testing::IsEmpty());
}

}  // namespace
}  // namespace quill::x11_test
