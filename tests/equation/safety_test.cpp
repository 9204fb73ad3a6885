#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QWidget>

#include "equation_world.h"

namespace quill::test {
namespace {

using tools::EquationForm;

/// Somebody outside who would hear of it when a formula fetched something.
class Listener {
 public:
  Listener() { m_server.listen(QHostAddress::LocalHost); }
  bool WasAsked() { return m_server.hasPendingConnections(); }
  std::string address() const { return "http://127.0.0.1:" + std::to_string(m_server.serverPort()); }

 private:
  QTcpServer m_server;
};

// A formula that was copied from somewhere must not tell its author who reads it.
TEST(Safety, FormulaFetchesNothing) {
  NEEDS_MATHJAX();
  Listener outside;
  const std::string at = outside.address();
  EquationWorld world;
  world.view().Widget().show();  // a page that is not seen does not look for its pictures
  for (const EquationForm form : {EquationForm::Native, EquationForm::Picture}) {
    const qsizetype before = world.view().RefusedAddresses().size();
    world.Show(R"(\style{background-image:url()" + at + R"(/a.png)}{x})", form);
    world.Show(R"(\require{)" + at + R"(/b.js} x)", form);
    world.Show(R"(\text{<img src=)" + at + R"(/c.png><script src=)" + at + R"(/d.js></script>})", form);
    EXPECT_TRUE(world.Native("x").ok() && world.Picture("x").ok()) << "the pages are still alive";
    EXPECT_GT(world.view().RefusedAddresses().size(), before)
        << "it did not even try: the test tests nothing";
  }
  EXPECT_FALSE(outside.WasAsked());
  EXPECT_FALSE(world.view().RefusedAddresses().join(' ').contains("/c.png")) << "text became markup";
}

// MathJax writes some names from a formula into markup as they stand. They neither become elements nor run.
TEST(Safety, FormulaIsNoMarkup) {
  NEEDS_MATHJAX();
  EquationWorld world;
  world.view().Widget().show();  // a page that is not seen does not look for its pictures
  const std::string element = R"(<img src=/brought.png onerror=fetch("http://127.0.0.1:9/ran")>)";
  for (const EquationForm form : {EquationForm::Native, EquationForm::Picture}) {
    world.Show(R"(\unicode{x41)" + element + "}", form);
    world.Show(R"(\class{">)" + element + R"(}{x})", form);
    world.Show(R"(\text{)" + element + "}", form);
    world.Show(R"(\style{background-image:url(/asked.png)}{x})", form);
    EXPECT_TRUE(world.Native("x").ok() && world.Picture("x").ok()) << "the pages are still alive";
  }
  EXPECT_TRUE(WaitUntil([&] { return world.view().MissingFiles().contains("/asked.png"); }));
  EXPECT_FALSE(world.view().MissingFiles().contains("/brought.png")) << "text became markup";
  EXPECT_EQ(world.view().RefusedAddresses().join(' ').toStdString(), "") << "a script ran";
  EXPECT_NE(world.Native(R"(\unicode{x41<b>}\unicode{x263a})").ValueOr("").find(">A<"), std::string::npos);
}

// The MathML lands in a comment of the page that is inserted, and must not end it.
TEST(Safety, MathMlDoesNotEndTheCommentAroundIt) {
  NEEDS_MATHJAX();
  EquationWorld& world = EquationWorld::Warm();
  for (const std::string mark : {"-->", "<![endif]"}) {
    const std::string mathMl = world.Native(R"(\class{)" + mark + "}{x}").ValueOr("");
    EXPECT_EQ(mathMl.find(mark), mathMl.npos) << mathMl;
  }
  EXPECT_TRUE(world.Native(R"(\text{--> <![endif]})").ok()) << "as text it is harmless";
}

/// The web page that a view shows; the tests know no more of it than that it is an object.
QObject* ShownPage(const QWidget& widget) {
  for (QObject* object : widget.findChildren<QObject*>()) {
    const auto* view = qobject_cast<QWidget*>(object->parent());
    if (object->inherits("QWebEnginePage") && view && view->isVisible()) return object;
  }
  return nullptr;
}

void MoveMouse(QWidget& widget, QPoint global) {
  QMouseEvent move(QEvent::MouseMove, widget.mapFromGlobal(global), global, Qt::NoButton, Qt::NoButton, {});
  QApplication::sendEvent(&widget, &move);
}

// A click on a link in the preview leads nowhere, and no script in it runs.
TEST(Safety, LinksInThePreviewDoNothing) {
  NEEDS_MATHJAX();
  Listener outside;
  EquationWorld world;
  QWidget& widget = world.view().Widget();
  widget.resize(300, 200);
  widget.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
  for (const EquationForm form : {EquationForm::Native, EquationForm::Picture}) {
    for (const std::string& link :
         {outside.address() + "/", std::string("javascript:document.body.remove()")}) {
      ASSERT_EQ(world.Show(R"(\href{)" + link + R"(}{\Rule{20em}{8em}{4em}})", form), "");
      QWidget* inner = QApplication::widgetAt(widget.mapToGlobal(QPoint(150, 100)));
      ASSERT_TRUE(inner);
      QObject* page = ShownPage(widget);
      ASSERT_TRUE(page);
      const QSignalSpy hovered(page, SIGNAL(linkHovered(QString)));
      int step = 0;  // a move before the page has drawn the link finds nothing there
      ASSERT_TRUE(WaitUntil([&] {
        MoveMouse(*inner, widget.mapToGlobal(QPoint(150, ++step % 2 == 0 ? 2 : 100)));
        return !hovered.isEmpty();
      })) << "the mouse does not reach the link";
      QTest::mouseClick(inner, Qt::LeftButton, {},
                        inner->mapFromGlobal(widget.mapToGlobal(QPoint(150, 100))));
      EXPECT_EQ(world.Show("\\gone", form), "Undefined control sequence \\gone");
    }
  }
  EXPECT_FALSE(outside.WasAsked());
}

// With a network address, that host alone is asked, and only over TLS.
TEST(Safety, NetworkAddressIsTheOnlyOne) {
  Listener outside;
  const shell::StringTable strings;
  EquationWorld world({.mathJax = {},
                       .strings = strings,
                       .networkAddress = QString::fromStdString(outside.address()),
                       .startDeadline = std::chrono::seconds(5)});
  EXPECT_EQ(world.Native("x").error(), "MathJax could not be loaded from " + outside.address() + ".");
  EXPECT_FALSE(outside.WasAsked());

  QString secure = QString::fromStdString(outside.address());
  secure.replace("http:", "https:");
  EquationWorld overTls({.mathJax = {},
                         .strings = strings,
                         .networkAddress = secure,
                         .startDeadline = std::chrono::seconds(2)});
  EXPECT_FALSE(overTls.Native("x").ok());
  EXPECT_TRUE(outside.WasAsked());
}

}  // namespace
}  // namespace quill::test
