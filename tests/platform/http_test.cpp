#include "platform/http.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>

#include "platform/curl/curl_http.h"
#include "platform/web_server.h"

namespace quill::platform {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr std::size_t kTenMegabytes = 10u << 20;

/// A server with one page for each way in which a service behaves.
class HttpRequests : public ::testing::Test {
 protected:
  void SetUp() override {
    server.pages.Get("/page", [](const httplib::Request& request, httplib::Response& response) {
      response.set_header("X-Seen", request.get_header_value("X-Sent"));
      response.set_content("hello", "text/plain");
    });
    server.pages.Get("/large", [](const httplib::Request&, httplib::Response& response) {
      response.set_content(std::string(kTenMegabytes, 'x'), "text/plain");
    });
    server.pages.Get("/to/(.*)", [](const httplib::Request& request, httplib::Response& response) {
      response.set_redirect(request.matches[1].str());
    });
    server.pages.Get("/hang", [this](const httplib::Request&, httplib::Response&) { server.Hang(); });
    server.pages.Get("/cut", [](const httplib::Request&, httplib::Response& response) {
      response.set_content_provider(1000, "text/plain",
                                    [](std::size_t, std::size_t, httplib::DataSink& sink) {
                                      sink.write("only this", 9);
                                      return false;
                                    });
    });
    server.pages.Get("/circle", [](const httplib::Request&, httplib::Response& response) {
      response.set_redirect("/circle");
    });
    server.pages.Get("/port", [](const httplib::Request& request, httplib::Response& response) {
      response.set_content(std::to_string(request.remote_port), "text/plain");
    });
    const auto echo = [](const httplib::Request& request, httplib::Response& response) {
      response.status = request.method == "POST" ? 201 : 409;
      response.set_content(
          request.method + " " + request.get_header_value("Content-Type") + " " + request.body, "x");
    };
    server.pages.Post("/echo", echo);
    server.pages.Patch("/echo", echo);
    server.pages.Delete("/echo", echo);
    server.Start();
  }

  HttpRequest Get(const std::string& path) const {
    HttpRequest request;
    request.url = server.address() + path;
    return request;
  }

  HttpProblem ProblemOf(const HttpRequest& request) {
    const auto answer = http.Send(request);
    EXPECT_FALSE(answer.ok()) << request.url;
    return answer.ok() ? HttpProblem::Failed : answer.error().problem;
  }

  test::WebServer server;
  CurlHttp http;
};

// What the online tools live on: each method, its body, what was sent and what came back, also for refusals.
TEST_F(HttpRequests, CarryHeadersAndBodiesBothWays) {
  HttpRequest request = Get("/page");
  request.headers = {{"X-Sent", "value"}};
  const auto page = http.Send(request);
  ASSERT_TRUE(page.ok()) << page.error().detail;
  EXPECT_EQ(page->status, 200);
  EXPECT_EQ(page->body, "hello");
  EXPECT_EQ(HeaderValue(page->headers, "x-seen"), "value");

  request = Get("/echo");
  request.headers = {{"content-type", "application/json"}};
  request.body = std::string("{\0}", 3);
  for (const auto& [method, status, body] :
       {std::tuple(HttpMethod::Post, 201, "POST application/json " + request.body),
        std::tuple(HttpMethod::Patch, 409, "PATCH application/json " + request.body),
        std::tuple(HttpMethod::Delete, 409, std::string("DELETE application/json "))}) {
    request.method = method;
    const auto answer = http.Send(request);
    ASSERT_TRUE(answer.ok()) << answer.error().detail;
    EXPECT_EQ(answer->status, status);
    EXPECT_EQ(answer->body, body);
  }
}

// A token must not travel to where a service points; a plain page may be fetched from there.
TEST_F(HttpRequests, FollowRedirectsOnlyWithoutAToken) {
  HttpRequest request = Get("/to//to//page");
  auto answer = http.Send(request);
  ASSERT_TRUE(answer.ok()) << answer.error().detail;
  EXPECT_EQ(answer->body, "hello");
  EXPECT_EQ(answer->url, server.address() + "/page");

  request.headers = {{"AUTHORIZATION", "Bearer secret"}};
  answer = http.Send(request);
  ASSERT_TRUE(answer.ok()) << answer.error().detail;
  EXPECT_EQ(answer->status, 302);
  EXPECT_EQ(HeaderValue(answer->headers, "location"), "/to//page");
}

// A service must not be able to make the program read local files, or keep it running in circles.
TEST_F(HttpRequests, RefuseWhatIsNotTheWeb) {
  for (const char* url : {"file:///etc/hostname", "ftp://127.0.0.1/x", "", "http://", "http://a b/"}) {
    HttpRequest request;
    request.url = url;
    EXPECT_EQ(ProblemOf(request), HttpProblem::BadRequest) << url;
  }
  HttpRequest smuggled = Get("/page");
  smuggled.headers = {{"X-Sent", "a\r\nAuthorization: b"}};
  EXPECT_EQ(ProblemOf(smuggled), HttpProblem::BadRequest);
  EXPECT_EQ(ProblemOf(Get("/to/file:///etc/hostname")), HttpProblem::TooManyRedirects);
  EXPECT_EQ(ProblemOf(Get("/circle")), HttpProblem::TooManyRedirects);
}

// The limit holds for what arrives, exactly, and a page of that size is not lost.
TEST_F(HttpRequests, StopAtTheSizeLimit) {
  HttpRequest request = Get("/large");
  request.bodyLimit = kTenMegabytes - 1;
  EXPECT_EQ(ProblemOf(request), HttpProblem::TooLarge);
  request.bodyLimit = kTenMegabytes;
  const auto answer = http.Send(request);
  ASSERT_TRUE(answer.ok());
  EXPECT_EQ(answer->body.size(), kTenMegabytes);
}

// Half a page must not be taken for a page, and nobody waits longer than told.
TEST_F(HttpRequests, NameWhatWentWrong) {
  EXPECT_EQ(ProblemOf(Get("/cut")), HttpProblem::CutOff);

  HttpRequest slow = Get("/hang");
  slow.deadline = 150ms;
  auto begin = steady_clock::now();
  EXPECT_EQ(ProblemOf(slow), HttpProblem::TimedOut);
  EXPECT_LT(steady_clock::now() - begin, 5s);

  slow.deadline = 60s;
  std::atomic<int> asked = 0;
  slow.isCancelled = [&asked] { return ++asked > 3; };
  begin = steady_clock::now();
  EXPECT_EQ(ProblemOf(slow), HttpProblem::Cancelled);
  EXPECT_LT(steady_clock::now() - begin, 10s);

  HttpRequest unknown;
  unknown.url = "http://host.invalid/";
  EXPECT_EQ(ProblemOf(unknown), HttpProblem::HostNotFound);
  server.Stop();
  EXPECT_EQ(ProblemOf(Get("/page")), HttpProblem::NotConnected);
}

// A new connection for each of a hundred requests costs seconds against a real service.
TEST_F(HttpRequests, ReuseTheirConnection) {
  std::set<std::string> ports;
  for (int i = 0; i < 4; ++i) {
    const auto answer = http.Send(Get("/port"));
    ASSERT_TRUE(answer.ok());
    ports.insert(answer->body);
  }
  EXPECT_EQ(ports.size(), 1u);
}

}  // namespace
}  // namespace quill::platform
