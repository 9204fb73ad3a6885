#include "equation/equation_page.h"

#include <QColor>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QWebChannel>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <algorithm>
#include <utility>

#include "equation/equation_bridge.h"
#include "equation/mathjax_source.h"
#include "platform/posix/end_process.h"
#include "tools/latex_page.h"

namespace quill::equation {
namespace {

using tools::EquationForm;

QString Resource(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void AddScript(QWebEnginePage& page, const QStringList& resources, QWebEngineScript::ScriptWorldId world) {
  QWebEngineScript script;
  QString code;
  for (const QString& resource : resources) code += Resource(resource) + "\n";
  script.setName(resources.back());
  script.setSourceCode(code);
  script.setWorldId(world);
  script.setInjectionPoint(QWebEngineScript::DocumentCreation);
  page.scripts().insert(script);
}

void Configure(QWebEngineSettings& settings) {
  settings.setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
  settings.setAttribute(QWebEngineSettings::JavascriptCanAccessClipboard, false);
  settings.setAttribute(QWebEngineSettings::JavascriptCanPaste, false);
  settings.setAttribute(QWebEngineSettings::LocalStorageEnabled, false);
  settings.setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, false);
  settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
  settings.setAttribute(QWebEngineSettings::PdfViewerEnabled, false);
  settings.setAttribute(QWebEngineSettings::HyperlinkAuditingEnabled, false);
  settings.setAttribute(QWebEngineSettings::WebGLEnabled, false);
  settings.setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
}

QString Call(const QString& function, const QVariantList& arguments) {
  const QByteArray json =
      QJsonDocument(QJsonArray::fromVariantList(arguments)).toJson(QJsonDocument::Compact);
  return QString("quill.%1.apply(quill, %2)").arg(function, QString::fromUtf8(json));
}

/// The text that a page typesets; the line breaks are those that its HTML would have.
QString PageText(const QString& plain) {
  if (plain.isEmpty()) return {};
  QString text = QString::fromStdString(tools::DisplayFormula(plain.toStdString()));
  return text.replace("\r\n", "\n").replace('\r', '\n').remove(QChar(0));
}

}  // namespace

EquationPage::EquationPage(EquationForm form, const ui::EquationOptions& options, QWebEngineProfile* profile,
                           QObject* parent)
    : QWebEnginePage(profile, parent),
      m_form(form),
      m_strings(options.strings),
      m_origin(options.networkAddress.isEmpty() ? QString::fromStdString(options.mathJax.string())
                                                : options.networkAddress),
      m_startDeadline(options.startDeadline),
      m_answerDeadline(options.answerDeadline) {
  Configure(*settings());
  auto* bridge = new EquationBridge(this);
  auto* channel = new QWebChannel(this);
  channel->registerObject("bridge", bridge);
  setWebChannel(channel, QWebEngineScript::ApplicationWorld);
  const bool isNative = form == EquationForm::Native;
  AddScript(*this, {":/equation/page.js", isNative ? ":/equation/native.js" : ":/equation/picture.js"},
            QWebEngineScript::MainWorld);
  AddScript(*this, {":/qtwebchannel/qwebchannel.js", ":/equation/bridge.js"},
            QWebEngineScript::ApplicationWorld);
  m_deadline.setSingleShot(true);
  connect(&m_deadline, &QTimer::timeout, this, &EquationPage::OnDeadline);
  connect(bridge, &EquationBridge::Save, this, &EquationPage::OnSave);
  // In a hidden page MathJax 2 would wait for timers of a second each. Has no effect before the first load.
  connect(this, &QWebEnginePage::loadStarted, this, [this] { setVisible(true); });
  connect(this, &QWebEnginePage::renderProcessTerminated, this, &EquationPage::OnLost);
}

bool EquationPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) {
  return isMainFrame && url == PageAddress(m_form);
}

QString EquationPage::Words(const char* key) const {
  return QString::fromStdString(m_strings.Format(key, {m_origin.toStdString()}));
}

void EquationPage::RunHere(const QString& code, std::function<void(const QVariant&)> got) {
  const std::weak_ptr<bool> alive = m_isAlive;
  runJavaScript(
      code, QWebEngineScript::MainWorld,
      [this, alive, round = m_round, number = m_number, got = std::move(got)](const QVariant& value) {
        if (!alive.expired() && round == m_round && number == m_number) got(value);
      });
}

void EquationPage::Enqueue(EquationJob job) {
  if (!job.wantsResult) {
    std::erase_if(m_waiting, [](const EquationJob& waiting) { return !waiting.wantsResult; });
    if (m_job && !m_job->wantsResult) m_job->done = nullptr;
    m_preview = job.formula;
  }
  m_waiting.push_back(std::move(job));
  Work();
}

void EquationPage::Warm() {
  if (m_state == State::Empty) Load();
}

void EquationPage::Work() {
  if (m_waiting.empty()) return;
  if (m_state == State::Empty || (m_state == State::Ready && m_isSpent)) {
    Load();
  } else if (m_state == State::Ready) {
    EquationJob job = std::move(m_waiting.front());
    m_waiting.pop_front();
    Start(std::move(job));
  }
}

void EquationPage::Load() {
  m_state = State::Loading;
  m_isSpent = false;
  ++m_round;
  m_deadline.start(m_startDeadline);
  load(PageAddress(m_form));
}

void EquationPage::Start(EquationJob job) {
  m_state = State::Typesetting;
  m_isSpent = tools::ChangesLaterFormulas(job.formula.toStdString());
  ++m_number;
  setVisible(true);
  m_deadline.start(m_answerDeadline);
  const QString call = Call("typeset", {m_number, PageText(job.formula)});
  m_job = std::move(job);
  runJavaScript(call, QWebEngineScript::MainWorld);
}

void EquationPage::OnSave() {
  if (m_state == State::Fetching) {
    ReadPicture();
  } else if (m_state == State::Loading || m_state == State::Typesetting) {
    RunHere("quill.answer", [this](const QVariant& answer) { OnAnswer(answer.toMap()); });
  }
}

void EquationPage::OnAnswer(const QVariantMap& answer) {
  if (answer.isEmpty()) return;
  const int job = answer["job"].toInt();
  const bool failed = answer["failed"].toBool();
  if (m_state == State::Loading && job == 0) {
    m_deadline.stop();
    if (failed) return FailAll(Words("errMathJaxNotLoaded"));
    m_state = State::Ready;
    runJavaScript(m_colors, QWebEngineScript::MainWorld);
    Work();
  } else if (m_state == State::Typesetting && job == m_number) {
    if (m_job->wantsResult && !failed) return FetchResult();
    Finish({answer["problem"].toString(), failed, {}});
  }
}

void EquationPage::FetchResult() {
  m_state = State::Fetching;
  if (m_form == EquationForm::Native) {
    RunHere("GetLaTeX()", [this](const QVariant& mathMl) { Finish({{}, false, mathMl}); });
    return;
  }
  RunHere("quill.text() ? get_svgpng() : ''", [this](const QVariant& begun) {
    if (begun.toString().isEmpty()) Finish({Words("msgConvertLaTeXFirst"), true, {}});
  });
}

void EquationPage::ReadPicture() {
  RunHere("[g_QuillPngResult, g_QuillPngWidth, g_QuillPngHeight]", [this](const QVariant& values) {
    if (m_state == State::Fetching) Finish({{}, false, values});
  });
}

void EquationPage::Finish(const Typeset& typeset) {
  m_deadline.stop();
  if (m_state != State::Empty) m_state = State::Ready;
  const std::optional<EquationJob> job = std::exchange(m_job, std::nullopt);
  Work();
  if (job && job->done) job->done(typeset);
}

void EquationPage::FailAll(const QString& words) {
  m_state = State::Empty;
  ++m_round;
  const auto waiting = std::exchange(m_waiting, {});
  Finish({words, true, {}});
  for (const EquationJob& job : waiting) {
    if (job.done) job.done({words, true, {}});
  }
}

void EquationPage::OnDeadline() {
  if (m_state == State::Loading) return FailAll(Words("errMathJaxNotLoaded"));
  ++m_round;
  if (platform::EndProcess(renderProcessPid())) {
    m_state = State::Ending;  // until it is lost
  } else {
    StartAnew("errEquationSlow");
  }
}

void EquationPage::StartAnew(const char* reason) {
  m_state = State::Empty;
  ++m_round;
  Finish({Words(reason), true, {}});
}

void EquationPage::OnLost() {
  if (m_state == State::Loading) return FailAll(Words("errEquationLost"));
  // Once: a formula that brings the process down later on would do so again and again.
  const std::optional<QString> preview = std::exchange(m_preview, std::nullopt);
  if (m_state == State::Ready && preview) m_waiting.push_back({*preview, false, nullptr});
  StartAnew(m_state == State::Ending ? "errEquationSlow" : "errEquationLost");
}

void EquationPage::SetColors(const QColor& text, const QColor& background) {
  setBackgroundColor(background);
  m_colors = Call("setColors", {text.name(), background.name()});
  if (m_state != State::Empty && m_state != State::Loading) {
    runJavaScript(m_colors, QWebEngineScript::MainWorld);
  }
}

}  // namespace quill::equation
