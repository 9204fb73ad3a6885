#include <gtest/gtest.h>

#include <QThreadPool>
#include <semaphore>

#include "gui_world.h"
#include "ui/kit/background.h"
#include "ui/windows/image_table/picture_thumbnails.h"

namespace quill::ui {
namespace {

// Files on a disk that does not answer must not keep other work from its threads.
TEST(Thumbnails, HungFilesHoldUpNothingElse) {
  const GuiWorld world;
  QThreadPool& others = *QThreadPool::globalInstance();
  const int threads = others.maxThreadCount();
  others.setMaxThreadCount(2);
  auto begun = std::make_shared<std::atomic<int>>(0);
  auto disk = std::make_shared<std::counting_semaphore<>>(0);
  PictureThumbnails thumbnails(40, [begun, disk](const std::string&, int) {
    ++*begun;
    disk->acquire();
    return PictureFacts();
  });
  for (const char* name : {"/disk/a", "/disk/b", "/disk/c"}) thumbnails.FindOrRead(name);
  EXPECT_TRUE(WaitUntil([&] { return *begun == 2; }));
  bool isDone = false;
  RunInBackground<int>(
      &thumbnails, [] { return 1; }, [&](int) { isDone = true; });
  EXPECT_TRUE(WaitUntil([&] { return isDone; }));
  disk->release(3);
  EXPECT_TRUE(WaitUntil([&] { return thumbnails.Find("/disk/c") != nullptr; }));
  others.setMaxThreadCount(threads);
}

}  // namespace
}  // namespace quill::ui
