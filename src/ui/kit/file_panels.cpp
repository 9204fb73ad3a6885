#include "ui/kit/file_panels.h"

#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QTreeView>
#include <algorithm>

#include "ui/kit/alert_box.h"
#include "ui/kit/once.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/window_place.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {
namespace {

using Path = std::filesystem::path;

Path ToPath(const QString& file) {
  return Path(QFile::encodeName(file).toStdString());
}

QString FromPath(const Path& path) {
  return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

/// macOS has a panel that users know and that appends extensions and asks before it replaces. Those of the
/// other desktops do neither in the right order, so Qt's own is shown there.
bool HasGoodNativePanel() {
  return QGuiApplication::platformName() == QStringLiteral("cocoa");
}

bool HasExtension(const QString& name, const QString& extension) {
  return name.size() > extension.size() + 1 && name.endsWith(u'.' + extension, Qt::CaseInsensitive);
}

/// The file name with the extension, which is appended unless it is there already.
QString WithExtension(QString name, const QString& extension) {
  if (extension.isEmpty() || HasExtension(name, extension)) return name;
  while (name.endsWith(u'.')) name.chop(1);
  return name + u'.' + extension;
}

QString PathWithExtension(const QString& file, const QString& extension) {
  const QFileInfo info(file);
  return info.dir().filePath(WithExtension(info.fileName(), extension));
}

/// What both panels share: who is told, the last folder, problems told above the panel.
class FilePanel : public QFileDialog {
 protected:
  FilePanel(const shell::StringTable& strings, PanelMemory& memory, const std::string& title)
      : QFileDialog(nullptr, ToQt(title)), m_strings(strings), m_memory(memory) {
    setAttribute(Qt::WA_DeleteOnClose);
    setOption(DontUseNativeDialog, !HasGoodNativePanel());
    // The native panel asks by itself. Qt's own would ask in a nested event loop, and too early.
    setOption(DontConfirmOverwrite, !HasGoodNativePanel());
    if (!HasGoodNativePanel()) setWindowModality(Qt::ApplicationModal);
  }

  bool OwnPanel() const { return testOption(DontUseNativeDialog); }

  /// Where the name is typed; null in a native panel.
  QLineEdit* NameField() { return findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); }

  void BeginIn(const QString& folder) {
    for (const QString& candidate : {folder, m_memory.folder, QDir::homePath()}) {
      if (candidate.isEmpty() || !QFileInfo(candidate).isDir()) continue;
      setDirectory(candidate);
      return;
    }
  }

  /// The file that a typed name means: relative to the folder on display, or to the home folder after "~/".
  QString Absolute(const QString& name) const {
    if (name == u"~" || name.startsWith(QStringLiteral("~/"))) return QDir::homePath() + name.mid(1);
    return QDir::cleanPath(directory().absoluteFilePath(name));
  }

  void Remember(const QString& folder) { m_memory.folder = folder; }

  void TellProblem(std::string_view key, const QString& name) {
    const QPointer<QWidget> panel = this;
    const auto goOn = [panel] {
      if (panel) panel->activateWindow();
    };
    ShowAlert(m_strings, ToQt(m_strings.Format(key, {FromQt(name)})), goOn, this);
  }

  const shell::StringTable& m_strings;

 private:
  PanelMemory& m_memory;
};

class SavePanelWindow final : public FilePanel {
 public:
  using Answer = std::optional<Path>;

  SavePanelWindow(const shell::StringTable& strings, PanelMemory& memory, const platform::SavePanel& panel,
                  std::function<void(Answer)> answered)
      : FilePanel(strings, memory, panel.title),
        m_extension(ToQt(panel.extension)),
        m_proposal(ToQt(panel.defaultName)),
        m_answered(std::move(answered)) {
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    if (!m_extension.isEmpty()) {
      setDefaultSuffix(m_extension);
      setNameFilter(QStringLiteral("*.") + m_extension);
    }
    BeginIn({});
    Propose(m_proposal);
  }

  void accept() override {
    if (!OwnPanel()) return TakeNative();
    const QString typed = NameField()->text().trimmed();
    if (typed.isEmpty()) return;
    if (QFileInfo(Absolute(typed)).isDir()) {
      setDirectory(Absolute(typed));
      return Propose(m_proposal);
    }
    const QString file = PathWithExtension(Absolute(typed), m_extension);
    const QFileInfo info(file);
    if (!QFileInfo(info.path()).isDir()) return TellProblem("errPanelNoFolder", info.path());
    if (info.isDir()) return TellProblem("errPanelIsFolder", info.fileName());
    if (!info.exists() && !info.isSymLink()) return Choose(file);
    AskToReplace(file);
  }

  void done(int result) override {
    QFileDialog::done(result);
    m_answered.Give(std::exchange(m_chosen, std::nullopt));
  }

 private:
  /// Writes the proposed name into the field with its stem selected, so that typing replaces just that. A
  /// slash in it (of a page's title) would be read as a folder.
  void Propose(QString name) {
    if (!name.isEmpty()) name = WithExtension(name.replace(u'/', u'-'), m_extension);
    if (!OwnPanel() && !name.isEmpty()) selectFile(name);
    QLineEdit* field = NameField();
    if (!OwnPanel() || field == nullptr) return;
    field->setText(name);
    field->setFocus();
    const qsizetype suffix = m_extension.isEmpty() ? 0 : m_extension.size() + 1;
    field->setSelection(0, static_cast<int>(std::max<qsizetype>(name.size() - suffix, 0)));
  }

  /// The native panel has appended and asked already; the extension is made certain all the same.
  void TakeNative() {
    const QStringList files = selectedFiles();
    if (files.isEmpty()) return reject();
    Choose(PathWithExtension(files.first(), m_extension));
  }

  void AskToReplace(const QString& file) {
    const QPointer<SavePanelWindow> panel = this;
    const auto answered = [panel, file](bool replace) {
      if (!panel) return;
      if (replace) return panel->Choose(file);
      panel->activateWindow();
    };
    const std::string name = FromQt(QFileInfo(file).fileName());
    ShowQuestion(m_strings, ToQt(m_strings.Format("askReplaceFile", {name})), answered, this);
  }

  void Choose(const QString& file) {
    Remember(QFileInfo(file).path());
    m_chosen = ToPath(file);
    done(Accepted);
  }

  QString m_extension;
  QString m_proposal;
  Answer m_chosen;
  Once<Answer> m_answered;
};

class OpenPanelWindow final : public FilePanel {
 public:
  using Answer = std::vector<Path>;

  OpenPanelWindow(const shell::StringTable& strings, PanelMemory& memory, const platform::OpenPanel& panel,
                  std::function<void(Answer)> answered)
      : FilePanel(strings, memory, panel.title), m_panel(panel), m_answered(std::move(answered)) {
    setAcceptMode(AcceptOpen);
    setFileMode(Folders() ? Directory : panel.several ? ExistingFiles : ExistingFile);
    setOption(ShowDirsOnly, Folders());
    setOption(ReadOnly, !Folders());
    if (!Folders()) setNameFilter(Filter());
    BeginIn(FromPath(panel.folder));
    if (!OwnPanel()) return;
    if (Folders() && panel.several) AllowSeveralFolders();
    if (!panel.message.empty()) PutOnTop(ToQt(panel.message));
  }

  void accept() override {
    const QStringList files = OwnPanel() ? Selected() : selectedFiles();
    if (files.isEmpty()) return;
    if (!Folders() && files.size() == 1 && QFileInfo(files.first()).isDir()) {
      setDirectory(files.first());
      if (OwnPanel()) NameField()->clear();
      return;
    }
    for (const QString& file : files) {
      const QFileInfo info(file);
      if (!info.exists()) return TellProblem("errPanelNotThere", info.fileName());
      if (info.isDir() != Folders()) {
        return TellProblem(Folders() ? "errPanelNotFolder" : "errPanelIsFolder", info.fileName());
      }
      if (!Allowed(info.fileName())) return TellProblem("errPanelWrongType", info.fileName());
    }
    Remember(Folders() ? files.first() : QFileInfo(files.first()).path());
    std::transform(files.begin(), files.end(), std::back_inserter(m_chosen), ToPath);
    done(Accepted);
  }

  void done(int result) override {
    QFileDialog::done(result);
    m_answered.Give(std::exchange(m_chosen, {}));
  }

 private:
  bool Folders() const { return m_panel.kind == platform::OpenKind::Folders; }

  bool Allowed(const QString& name) const {
    const auto matches = [&](const std::string& extension) { return HasExtension(name, ToQt(extension)); };
    return Folders() || m_panel.extensions.empty() ||
           std::any_of(m_panel.extensions.begin(), m_panel.extensions.end(), matches);
  }

  QString Filter() const {
    QStringList patterns;
    for (const std::string& extension : m_panel.extensions)
      patterns << QStringLiteral("*.") + ToQt(extension);
    return patterns.isEmpty() ? QStringLiteral("*") : patterns.join(u' ');
  }

  /// What is marked in the list, otherwise what was typed, for folders otherwise the one on display.
  QStringList Selected() {
    const QString typed = NameField()->text();
    QStringList files;
    for (const char* name : {"listView", "treeView"}) {
      auto* view = findChild<QAbstractItemView*>(QLatin1String(name));
      if (view == nullptr || !view->isVisible()) continue;
      for (const QModelIndex& index : view->selectionModel()->selectedRows()) {
        files << index.data(QFileSystemModel::FilePathRole).toString();
      }
    }
    const auto named = [&](const QString& file) { return typed.contains(QFileInfo(file).fileName()); };
    if (!files.isEmpty() && (typed.isEmpty() || std::all_of(files.begin(), files.end(), named))) return files;
    if (!typed.isEmpty()) return {Absolute(typed)};
    return Folders() ? QStringList{directory().absolutePath()} : QStringList();
  }

  void AllowSeveralFolders() {
    for (auto* view : findChildren<QAbstractItemView*>()) {
      if (view->objectName() == u"listView" || view->objectName() == u"treeView") {
        view->setSelectionMode(QAbstractItemView::ExtendedSelection);
      }
    }
  }

  /// Moves what is in the panel down by one row for the line that says what to choose.
  void PutOnTop(const QString& message) {
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (grid == nullptr) return;
    struct Cell {
      QLayoutItem* item;
      int row, column, rows, columns;
    };
    std::vector<Cell> cells;
    while (grid->count() > 0) {
      Cell cell{};
      grid->getItemPosition(0, &cell.row, &cell.column, &cell.rows, &cell.columns);
      cell.item = grid->takeAt(0);
      cells.push_back(cell);
    }
    for (const Cell& cell : cells) {
      grid->addItem(cell.item, cell.row + 1, cell.column, cell.rows, cell.columns);
    }
    setAccessibleDescription(message);
    grid->addWidget(NewWrappedLabel(message), 0, 0, 1, -1);
  }

  platform::OpenPanel m_panel;
  Answer m_chosen;
  Once<Answer> m_answered;
};

}  // namespace

void ShowSavePanel(const shell::StringTable& strings, PanelMemory& memory, const platform::SavePanel& panel,
                   std::function<void(std::optional<Path>)> answered) {
  BringToFront(*new SavePanelWindow(strings, memory, panel, std::move(answered)));
}

void ShowOpenPanel(const shell::StringTable& strings, PanelMemory& memory, const platform::OpenPanel& panel,
                   std::function<void(std::vector<Path>)> answered) {
  BringToFront(*new OpenPanelWindow(strings, memory, panel, std::move(answered)));
}

}  // namespace quill::ui
