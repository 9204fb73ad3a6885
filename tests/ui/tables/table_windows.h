#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "gui_world.h"
#include "shell/content_requests.h"

namespace quill::ui {

inline shell::TableCopy TableOf(const std::string& xml) {
  auto document = std::make_shared<pugi::xml_document>();
  EXPECT_TRUE(document->load_buffer(xml.data(), xml.size(), pugi::parse_full | pugi::parse_ws_pcdata));
  return document;
}

/// Asks for one kind of dialog as a command does.
template <class Window, class Request>
struct DialogTest : testing::Test {
  DialogTest() {
    world.windows.AddDialog<Request>([this](const Request& request, auto done) {
      return new Window(world.strings, request, std::move(done));
    });
  }

  auto Ask(Request request) {
    return world.OnCommandThread([this, request] { return RunDialog(world.ui, request); });
  }

  GuiWorld world;
};

}  // namespace quill::ui
