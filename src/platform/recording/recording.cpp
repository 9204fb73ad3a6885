#include "platform/recording/recording.h"

#include <fmt/format.h>

#include "platform/script/script_parser.h"

namespace quill::platform::recording {
namespace {

using script::KeyCode;
using script::Keystroke;
using script::Modifiers;

std::string Describe(const Modifiers& modifiers) {
  std::string text;
  if (modifiers.command) text += "command+";
  if (modifiers.control) text += "control+";
  if (modifiers.option) text += "option+";
  if (modifiers.shift) text += "shift+";
  return text;
}

/// The step as one word or two; nothing for waits and for what every script begins with.
struct StepName {
  std::string operator()(const script::Delay&) const { return {}; }
  std::string operator()(const script::Reopen&) const { return {}; }
  std::string operator()(const script::Activate&) const { return {}; }
  std::string operator()(const Keystroke& key) const { return Describe(key.modifiers) + key.text; }
  std::string operator()(const KeyCode& key) const {
    return fmt::format("{}key-{}", Describe(key.modifiers), key.code);
  }
  std::string operator()(const script::OpenLocation& open) const { return "open " + open.url; }
  std::string operator()(const script::RunMacro& macro) const { return "macro " + macro.macro; }
};

std::string NameSteps(const script::Program& program) {
  std::string text = "run";
  for (const script::Step& step : program) {
    const std::string name = std::visit(StepName{}, step);
    if (!name.empty()) text.append(" ").append(name);
  }
  return text;
}

std::optional<std::string>& Form(Contents& contents, Flavour flavour) {
  switch (flavour) {
    case Flavour::Html:
      return contents.html;
    case Flavour::Text:
      return contents.text;
    case Flavour::Png:
      break;
  }
  return contents.png;
}

std::string_view FlavourName(Flavour flavour) {
  switch (flavour) {
    case Flavour::Html:
      return "html";
    case Flavour::Text:
      return "text";
    case Flavour::Png:
      break;
  }
  return "png";
}

/// What stands between the fragment markers, or all of it.
std::string_view Visible(std::string_view html) {
  constexpr std::string_view kStart = "<!--StartFragment-->";
  const std::size_t start = html.find(kStart);
  if (start == std::string_view::npos) return html;
  html.remove_prefix(start + kStart.size());
  return html.substr(0, html.find("<!--EndFragment-->"));
}

bool IsPress(const script::Step& step, std::string_view text) {
  const auto* key = std::get_if<Keystroke>(&step);
  return key != nullptr && key->text == text && key->modifiers == Modifiers{.command = true};
}

/// Takes the next scripted answer, or the fallback when there is none left.
template <class T>
T Next(std::deque<T>& answers, T fallback) {
  if (answers.empty()) return fallback;
  T answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

class RecordedProgress final : public Progress {
 public:
  explicit RecordedProgress(std::optional<int> steps) : m_steps(steps) {}
  void Set(double, std::string_view) override { ++m_taken; }
  bool Cancelled() const override { return m_steps && m_taken >= *m_steps; }

 private:
  std::optional<int> m_steps;
  int m_taken = 0;
};

}  // namespace

void Recording::Record(std::string_view entry) {
  if (!m_transcript.empty()) m_transcript += "; ";
  m_transcript += entry;
}

ScriptResult Recording::RunScript(std::string_view text) {
  const Result<script::Program> program = script::ParseScript(text);
  const auto name = m_names.find(text);
  if (name != m_names.end()) {
    Record("run " + name->second);
  } else {
    Record(program.ok() ? NameSteps(*program) : "run unreadable script");
  }
  if (!program.ok()) return {ScriptProblem::BadScript, program.error()};
  if (!m_problems.empty()) {
    const ScriptProblem problem = m_problems.front();
    m_problems.erase(m_problems.begin());
    if (problem != ScriptProblem::None) return {problem, "recorded"};
  }
  Perform(*program);
  return {};
}

void Recording::Perform(const script::Program& program) {
  bool typedBlank = false;
  bool deleted = false;
  for (const script::Step& step : program) {
    const auto* key = std::get_if<Keystroke>(&step);
    if (key != nullptr && key->text == " ") typedBlank = true;
    const auto* code = std::get_if<KeyCode>(&step);
    if (code != nullptr && code->code == script::kKeyCodeDelete) deleted = true;
    if (key != nullptr && key->text == "T" && key->modifiers == Modifiers{.command = true, .shift = true}) {
      m_caretInTitle = true;
    }
    if (IsPress(step, "c")) PressCopy();
    if (IsPress(step, "v")) m_pastes.push_back({m_clipboard, deleted && !typedBlank});
  }
}

void Recording::PressCopy() {
  if (m_lostCopies > 0) {
    --m_lostCopies;
    return;
  }
  const Contents copied = m_caretInTitle ? Contents{std::nullopt, m_pageTitle, std::nullopt} : m_selection;
  if (copied == Contents{}) return;
  m_clipboard = copied;
  m_hasNewContents = true;
}

bool Recording::ApplicationInstalled(std::string_view bundlePath) {
  return m_applications.contains(bundlePath);
}

void Recording::Clear() {
  Record("clear");
  m_clipboard = {};
  m_hasNewContents = false;
}

bool Recording::WaitForNewContents(std::chrono::milliseconds) {
  return m_hasNewContents;
}

Result<std::string, ReadProblem> Recording::Read(Flavour flavour) {
  Record(fmt::format("read {}", FlavourName(flavour)));
  const std::optional<std::string>& form = Form(m_clipboard, flavour);
  if (!form) return Failure{ReadProblem::Absent};
  return *form;
}

bool Recording::Write(Flavour flavour, std::string_view bytes) {
  if (flavour == Flavour::Png) {
    Record(fmt::format("write png of {} bytes", bytes.size()));
  } else {
    Record(fmt::format("write {} {}", FlavourName(flavour), Visible(bytes)));
  }
  Form(m_clipboard, flavour) = std::string(bytes);
  m_restored = false;
  return true;
}

PasteboardSnapshot Recording::Save() {
  PasteboardSnapshot snapshot;
  for (const Flavour flavour : {Flavour::Html, Flavour::Text, Flavour::Png}) {
    const std::optional<std::string>& form = Form(m_clipboard, flavour);
    if (form) snapshot.flavours.push_back({std::string(FlavourName(flavour)), *form});
  }
  return snapshot;
}

void Recording::Restore(const PasteboardSnapshot& snapshot) {
  Record("restore clipboard");
  m_clipboard = {};
  for (const FlavourData& form : snapshot.flavours) {
    for (const Flavour flavour : {Flavour::Html, Flavour::Text, Flavour::Png}) {
      if (form.name == FlavourName(flavour)) Form(m_clipboard, flavour) = form.bytes;
    }
  }
  m_restored = true;
}

std::vector<std::string> Recording::FlavourNames() {
  std::vector<std::string> names;
  for (const FlavourData& form : Save().flavours) names.push_back(form.name);
  return names;
}

void Recording::ShowMessage(std::string_view text) {
  Record(fmt::format("message {}", text));
  m_messages.emplace_back(text);
}

bool Recording::AskYesNo(std::string_view question) {
  Record(fmt::format("ask {}", question));
  return Next(m_yesNo, false);
}

std::vector<std::filesystem::path> Recording::AskOpenPaths(const OpenPanel& panel) {
  Record(fmt::format("open panel {}", panel.title));
  return Next<std::vector<std::filesystem::path>>(m_openPaths, {});
}

std::optional<std::string> Recording::AskText(const TextQuestion& question) {
  Record(fmt::format("ask text {}", question.label));
  return Next<std::optional<std::string>>(m_texts, std::nullopt);
}

std::unique_ptr<Progress> Recording::BeginProgress(std::string_view title) {
  Record(fmt::format("progress {}", title));
  return std::make_unique<RecordedProgress>(m_progressSteps);
}

void Recording::ShowWindow(std::any request) {
  Record("show window");
  m_windows.push_back(std::move(request));
}

std::any Recording::RunWindow(std::any request) {
  Record("run window");
  std::any answer = Next<std::any>(m_dialogAnswers[std::type_index(request.type())], {});
  m_windows.push_back(std::move(request));
  return answer;
}

Status<> Recording::RecordOpening(std::string_view entry) {
  Record(entry);
  if (!m_openProblem.empty()) return Failure{m_openProblem};
  return Done();
}

Status<> Recording::OpenUrl(std::string_view url) {
  return RecordOpening(fmt::format("open url {}", url));
}

Status<> Recording::OpenFile(const std::filesystem::path& file) {
  return RecordOpening(fmt::format("open file {}", file.string()));
}

Status<> Recording::Reveal(const std::filesystem::path& file) {
  return RecordOpening(fmt::format("reveal {}", file.string()));
}

std::optional<std::filesystem::path> Recording::AskSavePath(const SavePanel& panel) {
  Record(fmt::format("save panel {} {} {}", panel.title, panel.defaultName, panel.extension));
  m_savePanels.push_back(panel);
  if (m_savePaths.empty()) return std::nullopt;
  std::optional<std::filesystem::path> path = std::move(m_savePaths.front());
  m_savePaths.erase(m_savePaths.begin());
  return path;
}

}  // namespace quill::platform::recording
