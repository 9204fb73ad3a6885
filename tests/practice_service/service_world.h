#pragma once
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <nlohmann/json.hpp>

#include "content/unicode_text.h"
#include "platform/curl/curl_http.h"
#include "practice/service/practice_service.h"
#include "practice_service/made_up_library.h"

namespace quill::test {

using Json = nlohmann::json;
using Answer = Result<platform::HttpResponse, platform::HttpFailure>;

/// A running service and a client that is signed in.
class ServiceWorld : public ::testing::Test {
 protected:
  ServiceWorld() {
    ::setenv("no_proxy", "127.0.0.1", 1);
    Restart({});
  }

  void Restart(const practice::ServiceOptions& options) {
    auto started = practice::PracticeService::Start(std::make_unique<MadeUpLibrary>(), options);
    service = started.ok() ? std::move(*started) : nullptr;
    token = service->IssueTokens().access;
  }

  Answer Send(platform::HttpMethod method, const std::string& path, const std::string& body = "",
              std::vector<platform::HttpHeader> headers = {}) {
    platform::HttpRequest request;
    request.method = method;
    request.url = service->Addresses().graph + path;
    request.body = body;
    request.headers = std::move(headers);
    if (!token.empty()) request.headers.push_back({"Authorization", "Bearer " + token});
    request.deadline = std::chrono::seconds(20);
    return http.Send(request);
  }

  Answer Get(const std::string& path) { return Send(platform::HttpMethod::Get, path); }

  /// A list of the service, by its path below the user's notebooks, unescaped.
  Json List(const std::string& path) {
    const Answer answer = Get("/v1.0/me/onenote/" + content::PercentEscape(path));
    return answer.ok() ? Json::parse(answer->body, nullptr, false) : Json();
  }

  /// The status of an answer and the code of the error in it.
  static std::string Told(const Answer& answer) {
    if (!answer.ok()) return "no answer: " + answer.error().detail;
    const Json body = Json::parse(answer->body, nullptr, false);
    const bool hasCode = body.is_object() && body.contains("error") && body["error"].is_object();
    return std::to_string(answer->status) + (hasCode ? " " + body["error"]["code"].get<std::string>() : "");
  }
  std::string ToldFor(const std::string& path) {
    return Told(Get("/v1.0/me/onenote/" + content::PercentEscape(path)));
  }

  /// The service's id of a section, by its place in the whole list.
  std::string SectionId(std::size_t index) { return List("sections")["value"][index]["id"]; }
  std::string FirstPageId() { return List("sections/" + SectionId(0) + "/pages?top=1")["value"][0]["id"]; }

  static std::vector<std::string> Titles(const Json& list) {
    std::vector<std::string> titles;
    for (const Json& page : list["value"]) titles.push_back(page["title"]);
    return titles;
  }

  std::unique_ptr<practice::PracticeService> service;
  std::string token;
  platform::CurlHttp http;
};

}  // namespace quill::test
