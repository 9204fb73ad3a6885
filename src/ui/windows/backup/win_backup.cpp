#include "ui/windows/backup/win_backup.h"

#include <QAccessible>
#include <QDate>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <algorithm>

#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/backup/backup_list.h"

namespace quill::ui {
namespace {

constexpr int kWidthInCharacters = 84;

QDate DateOf(const std::string& name) {
  return QDate::fromString(ToQt(name), QStringLiteral("yyyyMMdd"));
}

}  // namespace

MWinBackup::MWinBackup(const shell::StringTable& strings, BackupHandlers handlers)
    : AnswerWindow(strings, "titleBackup", {[](const auto&) {}}), m_handlers(std::move(handlers)) {
  setObjectName(QStringLiteral("backup"));
  content().addWidget(NewRestorePart());
  content().addSpacing(fontMetrics().lineSpacing() / 2);
  content().addWidget(NewListPart(strings), 1);
  content().addWidget(NewBusyPart());
  OnlyClose();
  m_clear = &AddButton("strBackupClear");
  m_clear->setObjectName(QStringLiteral("clear"));
  m_clear->setAutoDefault(false);
  connect(m_clear, &QPushButton::clicked, this, &MWinBackup::buttonClearBackupsClick);
  QSet<QChar> taken;
  for (QLabel* label : findChildren<QLabel*>()) {
    if (label->buddy() != nullptr) label->setText(WithMnemonic(label->text(), taken));
  }
  m_cancel->setText(WithMnemonic(m_cancel->text(), taken));
  AssignMnemonics(buttons(), taken);
  resize(fontMetrics().averageCharWidth() * kWidthInCharacters, sizeHint().height());
  LoadBackups();
}

QWidget* MWinBackup::NewRestorePart() {
  auto* part = new QWidget;
  auto* row = new QHBoxLayout;
  for (QPushButton*& button : m_restoreButtons) {
    button = new QPushButton;
    button->setMinimumWidth(fontMetrics().averageCharWidth() * 20);
    button->setEnabled(false);
    connect(button, &QPushButton::clicked, this, &MWinBackup::buttonRecoveryClick);
    row->addWidget(button);
  }
  m_restoreButtons[0]->setObjectName(QStringLiteral("ButtonRestore1"));
  m_restoreButtons[1]->setObjectName(QStringLiteral("ButtonRestore2"));
  row->addStretch(1);
  auto* title = new QLabel(Text("strBackupRestore"));
  title->setBuddy(m_restoreButtons[0]);
  m_restores = NewWrappedLabel(QString());
  m_restores->setObjectName(QStringLiteral("restores"));
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins({});
  column->addWidget(title);
  column->addLayout(row);
  column->addWidget(m_restores);
  return part;
}

QWidget* MWinBackup::NewListPart(const shell::StringTable& strings) {
  m_list = new BackupList(strings);
  m_list->setAccessibleName(WithoutColon(Text("strBackupAll")));
  m_nothing = NewWrappedLabel(QString());
  m_nothing->setMargin(fontMetrics().averageCharWidth());
  m_stack = new QStackedWidget;
  m_stack->addWidget(m_list);
  m_stack->addWidget(m_nothing);
  auto* title = new QLabel(Text("strBackupAll"));
  title->setBuddy(m_list);
  auto* part = new QWidget;
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins({});
  column->addWidget(title);
  column->addWidget(m_stack, 1);
  return part;
}

QWidget* MWinBackup::NewBusyPart() {
  m_busy = new QWidget;
  m_busyText = new QLabel;
  auto* bar = new QProgressBar;
  bar->setRange(0, 0);
  bar->setTextVisible(false);
  m_cancel = new QPushButton(Text("strCancel"));
  m_cancel->setObjectName(QStringLiteral("cancel"));
  m_cancel->setAutoDefault(false);
  connect(m_cancel, &QPushButton::clicked, this, [this] {
    if (m_isCancelled) *m_isCancelled = true;
    m_cancel->setEnabled(false);
    m_busyText->setText(Text("strStopping"));
  });
  auto* row = new QHBoxLayout(m_busy);
  row->setContentsMargins({});
  row->addWidget(m_busyText);
  row->addWidget(bar, 1);
  row->addWidget(m_cancel);
  QSizePolicy policy = m_busy->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  m_busy->setSizePolicy(policy);
  m_busy->hide();
  return m_busy;
}

void MWinBackup::LoadBackups() {
  m_measuring.Cancel();
  m_listing.Run([places = m_handlers.places](const auto&) { return files::ListBackups(places); },
                [this](const Result<std::vector<files::Backup>>& backups) { ShowBackups(backups); });
}

void MWinBackup::ShowBackups(const Result<std::vector<files::Backup>>& backups) {
  m_list->SetBackups(backups.ok() ? *backups : std::vector<files::Backup>(), m_handlers.today());
  m_nothing->setText(backups.ok() ? Text("strBackupNone") : ToQt(backups.error()));
  m_stack->setCurrentWidget(m_list->backups().empty() ? static_cast<QWidget*>(m_nothing) : m_list);
  NameButtons(backups.ok() ? *backups : std::vector<files::Backup>());
  if (!m_list->backups().empty()) Measure(0);
}

/// The first two in the order of the file system. One that is not whole is no choice.
void MWinBackup::NameButtons(const std::vector<files::Backup>& backups) {
  m_firstDay.clear();
  std::size_t named = 0;
  for (QPushButton* button : m_restoreButtons) button->setText(QString());
  for (const files::Backup& backup : backups) {
    if (!backup.isWhole || named == m_restoreButtons.size()) continue;
    if (named == 0) m_firstDay = locale().toString(DateOf(backup.name), QLocale::LongFormat);
    m_restoreButtons[named++]->setText(ToQt(backup.name));
  }
  const QString restores =
      named > 0 ? Format("strBackupRestores", {FromQt(m_firstDay)}) : Text("strBackupRestoresNone");
  m_restores->setText(restores);
  for (QPushButton* button : m_restoreButtons) {
    const bool isNamed = !button->text().isEmpty();
    button->setAccessibleName(isNamed ? button->text() : WithoutColon(Text("strBackupRestore")));
    button->setAccessibleDescription(isNamed ? restores : QString());
    button->setToolTip(isNamed ? restores : QString());
    button->setVisible(isNamed);
  }
  UpdateButtons();
}

/// One backup after the other, so that the first size is there soon.
void MWinBackup::Measure(int row) {
  const std::string name = m_list->backups()[static_cast<std::size_t>(row)].name;
  m_measuring.Run(
      [places = m_handlers.places, name](const LatestJob::IsCancelled& isCancelled) {
        return files::MeasureBackup(places, name, isCancelled);
      },
      [this, row](const files::BackupContents& contents) {
        m_list->SetContents(row, contents);
        if (row + 1 < m_list->topLevelItemCount()) Measure(row + 1);
      });
}

void MWinBackup::UpdateButtons() {
  const bool isFree = m_isCancelled == nullptr;
  for (QPushButton* button : m_restoreButtons) button->setEnabled(isFree && !button->text().isEmpty());
  m_clear->setEnabled(isFree && !m_list->backups().empty());
}

void MWinBackup::buttonRecoveryClick() {
  const std::string name = FromQt(m_restoreButtons[0]->text());
  m_handlers.restore(name, FromQt(m_firstDay), NewTask("strBackupRestoring"));
}

void MWinBackup::buttonClearBackupsClick() {
  m_handlers.clear(NewTask("strBackupClearing"));
}

BackupTask MWinBackup::NewTask(std::string_view busyKey) {
  const QPointer<MWinBackup> self(this);
  BackupTask task;
  task.onBegin = [self, what = Text(busyKey)] {
    if (self) self->Begin(what);
  };
  task.onEnd = [self] {
    if (self) self->End();
  };
  m_isCancelled = task.isCancelled;
  UpdateButtons();
  return task;
}

void MWinBackup::Begin(const QString& what) {
  m_busyText->setText(what);
  m_busy->findChild<QProgressBar*>()->setAccessibleName(what);
  m_cancel->setEnabled(true);
  m_busy->show();
  m_cancel->setFocus();
  QAccessibleEvent alert(m_busy, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void MWinBackup::End() {
  m_isCancelled = nullptr;
  m_busy->hide();
  LoadBackups();
}

void MWinBackup::reject() {
  if (m_isCancelled) *m_isCancelled = true;
  AnswerWindow::reject();
}

}  // namespace quill::ui
