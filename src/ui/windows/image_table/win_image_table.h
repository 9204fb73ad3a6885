#pragma once
#include <QList>
#include <QUrl>
#include <filesystem>
#include <string>
#include <vector>

#include "shell/content_requests.h"
#include "ui/kit/file_panels.h"
#include "ui/kit/modal_window.h"
#include "ui/windows/image_table/picture_walk.h"

class QCheckBox;
class QLabel;
class QLayout;

namespace quill::ui {

class ArrangementPreview;
class ImageListModel;
class ImageListView;
class PictureThumbnails;
class SkippedLine;

/// Asks for the pictures of a table: they are added with panels or dropped from a file manager, folders with
/// all their subfolders, and put in order by dragging or with the keyboard. What is no picture is left out
/// and named. An empty list is no answer.
class MWinImageTable final : public AnswerWindow<shell::ImageTableChoice> {
 public:
  /// `panels` outlives the window. `expand` stands for `tools::ExpandPictures` in a test.
  MWinImageTable(const shell::StringTable& strings, PanelMemory& panels,
                 const shell::ImageTableRequest& request, Done done, PictureWalk::Expand expand = {});

  /// Adds files and folders at the end of the list, as a drop does.
  void Add(std::vector<std::string> paths);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  Result<shell::ImageTableChoice, Problem> Read() override;
  QLayout* NewHeader();
  QLayout* NewButtonColumn();
  QLayout* NewStyleRow(tools::ImageTableStyle remembered);
  QPushButton* NewButton(std::string_view key, std::function<void()> pressed);
  tools::ImageTableStyle Style() const;
  void AskForFiles();
  void AskForFolder();
  void ShowPanel(const platform::OpenPanel& panel);
  void AddUrls(const QList<QUrl>& urls, int before);
  void AddPaths(std::vector<std::string> paths, int before);
  void Take(const tools::PictureList& list, const QPersistentModelIndex& before);
  void Clear();
  void ShowState();

  const shell::StringTable& m_texts;
  PanelMemory& m_panels;
  PictureWalk* m_walk;
  PictureThumbnails* m_thumbnails;
  ImageListModel* m_model;
  ImageListView* m_view;
  QLabel* m_count;
  SkippedLine* m_skipped;
  std::vector<QPushButton*> m_needMarks;  ///< buttons that act on the marked rows
  QPushButton* m_clear;
  QCheckBox* m_horizontal;
  QCheckBox* m_names;
  ArrangementPreview* m_preview;
};

}  // namespace quill::ui
