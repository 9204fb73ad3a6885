#pragma once
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "online/fake_host.h"
#include "online/online_main.h"
#include "platform/curl/curl_http.h"
#include "practice/service/practice_service.h"

namespace quill::online {

/// Requests, when it is told so with a hundredth of their time, so that a test can wait for the end of it.
class ShortHttp final : public platform::Http {
 public:
  bool shorten = false;

  Result<platform::HttpResponse, platform::HttpFailure> Send(const platform::HttpRequest& request) override {
    platform::HttpRequest shorter = request;
    if (shorten) shorter.deadline = request.deadline / 100;
    return m_http.Send(shorter);
  }

 private:
  platform::CurlHttp m_http;
};

inline std::string PageGuid(int number) {
  return fmt::format("{{{:08X}-2222-4333-8444-0123456789AB}}", number);
}

/// One notebook with three sections of one name; the page that commands work on is the fifth of the third.
class ThreePlans final : public practice::NotebookLibrary {
 public:
  static constexpr int kPage = 3004;

  explicit ThreePlans(int pagesPerSection) : m_pages(pagesPerSection) {}

  std::vector<practice::LibraryNotebook> Notebooks() override {
    practice::LibraryNotebook home{PageGuid(1), "Home", true, false, "7c1f0a93b2d84e65", {}};
    for (int i = 1; i <= 3; ++i)
      home.sections.push_back({PageGuid(10 + i), "Plans", {fmt::format("Group {}", i)}, Pages(1000 * i)});
    return {home};
  }
  Result<practice::LibraryContent> Load(std::string_view) override {
    return practice::LibraryContent{"Page 4", "<h1>One</h1><p data-tag=\"to-do\">Milk</p>"};
  }
  Status<> Save(std::string_view, const practice::LibraryContent&) override { return Done(); }

 private:
  std::vector<practice::LibraryPage> Pages(int from) const {
    std::vector<practice::LibraryPage> pages;
    for (int i = 0; i < m_pages; ++i) pages.push_back({PageGuid(from + i), fmt::format("Page {}", i), 0, i});
    return pages;
  }

  int m_pages;
};

/// A user who is signed in at a running service, in front of a page that is in it.
class OnlineWorld {
 public:
  explicit OnlineWorld(int pagesPerSection = 5) {
    ::setenv("no_proxy", "127.0.0.1", 1);
    auto started = practice::PracticeService::Start(std::make_unique<ThreePlans>(pagesPerSection), {});
    if (!started.ok()) ADD_FAILURE() << started.error();
    service = std::move(*started);
    endpoints = service->Addresses();
    ServiceClient client(http);
    memory.PendingAuthCode = service->IssueCode();
    const Status<> finished =
        FinishSignIn(session, client, {"", memory.PendingAuthCode}, {},
                     [](SignInProblem problem) { ADD_FAILURE() << SignInProblemText(problem); });
    if (!finished.ok()) ADD_FAILURE() << finished.error();
    OpenPage(ThreePlans::kPage);
    saved = 0;
    service->ForgetRequests();
  }

  /// Opens another page of the third section in OneNote.
  void OpenPage(int number) {
    host.link = fmt::format(
        "onenote:https://{}/{}/Documents/Home/Group%203/Plans.one#Page%204&section-id={}&page-id={}&end",
        endpoints.documentHost, account.ClientUrlAccountId, PageGuid(13), PageGuid(number));
  }

  /// One command, as one object serves; how many requests it took.
  int Run(std::int64_t command, const std::string& file = "") {
    MOnlineOneNoteMain main(host, session, http, clock);
    main.RunOnlineCommand(command, 0, 0, file);
    return main.RequestCount();
  }

  std::unique_ptr<practice::PracticeService> service;
  Endpoints endpoints;
  Account account;
  SessionMemory memory;
  int saved = 0;
  Session session{endpoints, account, memory, [this]() -> Status<> {
                    ++saved;
                    return Done();
                  }};
  FakeHost host;
  ShortHttp http;
  platform::SystemClock clock;
};

}  // namespace quill::online
