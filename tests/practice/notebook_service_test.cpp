// The service that the notebook brings along.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "content/text_between.h"
#include "content/unicode_text.h"
#include "platform/curl/curl_http.h"
#include "practice/practice_world.h"

namespace quill::test {
namespace {

using content::TextBetween;
using nlohmann::json;
using platform::HttpHeader;
using platform::HttpMethod;
using testing::HasSubstr;

/// A client of the service, as a program that is signed in.
class Client {
 public:
  explicit Client(PracticeWorld& world) : m_world(world), m_endpoints(*world.notebook().StartService()) {
    ::setenv("no_proxy", "127.0.0.1", 1);
    const std::string redirect = m_endpoints.signIn + "/oauth20_desktop.srf";
    const std::string query = "client_id=" + m_endpoints.clientId + "&redirect_uri=" + redirect;
    const HttpHeader form{"Content-Type", "application/x-www-form-urlencoded"};
    const auto signedIn =
        Send(HttpMethod::Post,
             m_endpoints.identity +
                 "/common/oauth2/v2.0/authorize?response_type=code&scope=Notes.ReadWrite&" + query,
             "username=practice%40example.com&password=any", form);
    const std::string code(TextBetween(platform::HeaderValue(signedIn.headers, "Location"), "code=", "&"));
    const auto tokens = Send(HttpMethod::Post, m_endpoints.identity + "/common/oauth2/v2.0/token",
                             query + "&grant_type=authorization_code&code=" + code, form);
    m_token = TextBetween(tokens.body, "\"access_token\":\"", "\"");
  }

  /// One request below the user's notebooks; a status of 0 without an answer.
  platform::HttpResponse Ask(HttpMethod method, const std::string& path, const std::string& body = "") {
    return Send(method, m_endpoints.graph + "/v1.0/me/onenote/" + content::PercentEscape(path), body,
                {"Authorization", "Bearer " + m_token});
  }

 private:
  platform::HttpResponse Send(HttpMethod method, const std::string& url, const std::string& body,
                              const HttpHeader& header) {
    platform::HttpRequest request;
    request.method = method;
    request.url = url;
    request.headers = {header};
    if (method == HttpMethod::Patch) request.headers.push_back({"Content-Type", "application/json"});
    request.body = body;
    request.deadline = std::chrono::seconds(10);
    platform::HttpResponse response;
    m_world.OnCommandThread([&] {
      if (auto answer = m_http.Send(request); answer.ok()) response = std::move(*answer);
    });
    return response;
  }

  PracticeWorld& m_world;
  Endpoints m_endpoints;
  platform::CurlHttp m_http;
  std::string m_token;
};

// Found by the title, changed over the network, and seen in the window: the way of every online tool.
TEST(NotebookService, AChangeOverTheNetworkIsSeenInTheWindow) {
  PracticeWorld world;
  Client client(world);
  const json pages = json::parse(client.Ask(HttpMethod::Get, "pages?top=100").body, nullptr, false);
  ASSERT_TRUE(pages.is_object());
  const auto welcome = std::find_if(pages["value"].begin(), pages["value"].end(),
                                    [](const json& page) { return page["title"] == "Welcome"; });
  ASSERT_NE(welcome, pages["value"].end());
  const std::string content = "pages/" + (*welcome)["id"].get<std::string>() + "/content";
  const std::string html = client.Ask(HttpMethod::Get, content + "?includeIDs=true").body;
  const std::size_t text = html.find("The quick");
  ASSERT_NE(text, std::string::npos) << html;
  const std::size_t id = html.rfind("<p id=\"", text) + 7;
  const json changes = {{{"target", html.substr(id, html.find('"', id) - id)},
                         {"action", "replace"},
                         {"content", "<p>Over the network</p>"}}};
  EXPECT_EQ(client.Ask(HttpMethod::Patch, content, changes.dump()).status, 204);
  EXPECT_TRUE(WaitUntil([&] { return world.VisibleText().find("Over the network") != std::string::npos; }));
  EXPECT_EQ(client.Ask(HttpMethod::Patch, content, changes.dump()).status, 400) << "that id is of the past";
}

// One service for one notebook, and none after it.
TEST(NotebookService, LivesAsLongAsTheNotebook) {
  PracticeWorld world;
  Client client(world);
  EXPECT_EQ(world.notebook().StartService()->graph, world.notebook().StartService()->graph);
  EXPECT_EQ(client.Ask(HttpMethod::Get, "notebooks").status, 200);
  world.Reopen();
  EXPECT_EQ(client.Ask(HttpMethod::Get, "notebooks").status, 0);
}

}  // namespace
}  // namespace quill::test
