#pragma once
#include <filesystem>
#include <functional>
#include <optional>

#include "shell/string_table.h"
#include "ui/kit/file_panels.h"
#include "ui/kit/tool_window.h"
#include "ui/windows/image/picture_loader.h"

class QAbstractButton;
class QLabel;
class QSpinBox;
class QStackedLayout;

namespace quill::ui {

class CropBar;
class ElidedLabel;
class PictureView;

/// What the viewer needs from the program.
struct ImageWindowWorld {
  const shell::StringTable& strings;
  PanelMemory& panels;                    ///< outlives the window
  std::filesystem::path temporaryFolder;  ///< private to this user
  /// Pastes this PNG file into OneNote. The file is the window's: it is overwritten by the next paste.
  std::function<void(std::filesystem::path png)> paste;
};

/// The image viewer: looks at a picture, selects a part of it, and copies, saves or pastes that part, or the
/// whole picture when nothing is selected. Escape drops the selection first, then closes.
class MWinImage final : public ToolWindow {
 public:
  /// The name of the file, in the temporary folder, that is handed to `paste`.
  static constexpr const char* kPasteFile = "quillcrop.png";

  explicit MWinImage(ImageWindowWorld world);

  /// Reads a picture, on another thread; the window says so when it takes long, and says why when it fails.
  void Open(const std::filesystem::path& file);

  PictureView& view() { return *m_view; }

  void Copy();
  /// Asks for a name and saves.
  void Save();
  /// Saves without asking; a failure is told.
  void SaveTo(const std::filesystem::path& file);
  void PasteIntoOneNote();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeToolBar();
  QWidget* MakeStatusLine();
  QAbstractButton* AddButton(QWidget* bar, const QString& text, std::function<void()> pressed);
  void AddShortcuts();
  void ShowResult(PictureResult result);
  void ShowPicture(LoadedPicture picture);
  void ShowWords(const QString& words);
  void ShowState();
  void Say(const QString& words);
  bool HasPicture() const;

  ImageWindowWorld m_world;
  std::filesystem::path m_file;
  std::vector<QWidget*> m_needPicture;
  QStackedLayout* m_stack;
  PictureView* m_view;
  QLabel* m_words;
  CropBar* m_crop;
  QSpinBox* m_zoom;
  ElidedLabel* m_name;
  QLabel* m_state;
  bool m_busy = false;  ///< a picture is being written
};

}  // namespace quill::ui
