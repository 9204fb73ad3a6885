#pragma once
#include <QString>
#include <filesystem>
#include <functional>

#include "ui/kit/tool_window.h"

namespace quill::ui {

/// What the about window tells, and what its buttons do.
struct AboutFacts {
  std::filesystem::path settingsFile;   ///< where the settings are kept
  std::filesystem::path supportFolder;  ///< where everything else is kept
  QString license;                      ///< the licence's text; its first line is its name
  QString notices;                      ///< the notices for third-party parts, as Markdown
  std::function<void(const std::filesystem::path&)> showFolder;  ///< opens a folder in the file manager
};

/// The licence of this program, as it was at build time.
QString LicenseText();

/// The notices for third-party parts, as they were at build time.
QString ThirdPartyNotices();

/// Product, version, licence, where the settings live, what to put into a bug report.
class MWinAbout final : public ToolWindow {
 public:
  MWinAbout(const shell::StringTable& strings, AboutFacts facts);

 private:
  QWidget* NewHead();
  QWidget* NewSystemPage();
  QWidget* NewLicensePage();
  QWidget* NewNoticesPage();

  /// Versions and system, in lines of "name: value", for a bug report.
  QString SystemFacts() const;

  AboutFacts m_facts;
};

}  // namespace quill::ui
