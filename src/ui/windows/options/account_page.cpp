#include "ui/windows/options/account_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "ui/kit/qt_text.h"

namespace quill::ui {

AccountPage::AccountPage(OptionsDesk& desk)
    : OptionPage(desk),
      m_who(new QLabel),
      m_signIn(NewActionButton("menuSignIn", "MenuItemSignInClick")),
      m_signOut(NewActionButton("menuSignOut", "MenuItemSignOutClick")) {
  AddText("strOptionsAccountHelp");
  m_who->setObjectName(QStringLiteral("account"));
  m_who->setTextFormat(Qt::PlainText);
  m_who->setWordWrap(true);
  m_who->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  m_who->setFocusPolicy(Qt::StrongFocus);
  QFont bold = m_who->font();
  bold.setBold(true);
  m_who->setFont(bold);
  AddRow(m_who);
  auto* buttons = new QWidget;
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins({});
  row->addWidget(m_signIn);
  row->addWidget(m_signOut);
  row->addStretch(1);
  AddRow(buttons);
  Refresh();
}

void AccountPage::ShowFacts() {
  const shell::Settings& settings = desk().facts().settings;
  const std::string& name = settings.OnlineOneNoteUserPrincipalName;
  const bool signedIn = !name.empty() || !settings.OnlineOneNoteRefreshToken.empty();
  QString who = Text("strOptionsNotSignedIn");
  if (signedIn) who = name.empty() ? Text("strOptionsSignedIn") : Format("strOptionsSignedInAs", {name});
  if (m_who->text() != who) m_who->setText(who);
  // The keyboard must not slip from "sign in" onto "sign out".
  if (m_signIn->hasFocus() || m_signOut->hasFocus()) {
    if (!(signedIn ? m_signOut : m_signIn)->hasFocus()) m_who->setFocus();
  }
  m_signIn->setEnabled(!signedIn);
  m_signOut->setEnabled(signedIn);
}

}  // namespace quill::ui
