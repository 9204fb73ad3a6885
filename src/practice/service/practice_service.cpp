#include "practice/service/practice_service.h"

#include <atomic>
#include <utility>

#include "practice/service/fault_routes.h"
#include "practice/service/graph_routes.h"
#include "practice/service/html_text.h"
#include "practice/service/identity_routes.h"
#include "practice/service/request_log.h"
#include "practice/service/web_server.h"

namespace quill::practice {
namespace {

constexpr std::chrono::minutes kHang{1};

WebAnswer Nowhere() {
  WebAnswer answer;
  answer.status = 404;
  answer.body = "There is nothing at this address.\n";
  return answer;
}

WebAnswer Gone() {
  WebAnswer answer;
  answer.ending = Ending::ResetBefore;
  return answer;
}

bool IsBelow(const WebRequest& request, std::string_view first) {
  return !request.segments.empty() && request.segments.front() == first;
}

}  // namespace

/// What the server's threads share. The web server is made last and goes first.
class PracticeService::Server {
 public:
  Server(std::unique_ptr<NotebookLibrary> library, ServiceOptions options)
      : m_options(std::move(options)), m_library(std::move(library)), m_tokens(m_options.tokenLife) {}

  Status<> Start() {
    auto web = WebServer::Start(m_options.port, [this](const WebRequest& request, const Pause& pause) {
      m_isReady.wait(false);
      return Answer(request, pause);
    });
    if (!web.ok()) return Failure{web.error()};
    m_web = std::move(*web);
    m_host = "127.0.0.1:" + std::to_string(m_web->Port());
    m_identity.emplace(Base(), m_tokens);
    m_graph.emplace(ServiceAddresses{Base(), m_options.documentHost}, *m_library, m_tokens);
    m_isReady = true;
    m_isReady.notify_all();
    return Done();
  }

  Endpoints Addresses() const {
    Endpoints addresses;
    addresses.graph = addresses.identity = addresses.signIn = addresses.webApp = Base();
    addresses.documentHost = m_options.documentHost;
    addresses.clientId = kPracticeClientId;
    return addresses;
  }

  const WebServer& Web() const { return *m_web; }
  const IdentityRoutes& Identity() const { return *m_identity; }
  TokenBook& Tokens() { return m_tokens; }
  FaultPlan& Faults() { return m_faults; }
  RequestLog& Log() { return m_log; }

 private:
  std::string Base() const { return "http://" + m_host; }

  WebAnswer Answer(const WebRequest& request, const Pause& pause) {
    // A page of somebody else's that makes a browser come here names itself; so does a name that was turned
    // here.
    const bool isForeign = !request.origin.empty() && request.origin != Base();
    if (request.host != m_host || isForeign) {
      WebAnswer answer;
      answer.status = 403;
      return answer;
    }
    if (request.segments == std::vector<std::string>{"practice", "faults"})
      return FaultRoute(request, m_faults);
    m_log.Add(request.method, request.target);
    const std::chrono::milliseconds latency = m_faults.Latency();
    if (latency.count() > 0 && !pause(latency)) return Gone();
    const std::optional<FaultKind> fault = m_faults.Take(request.target);
    if (!fault) return RealAnswer(request, fault);
    if (fault == FaultKind::Hang && !pause(kHang)) return Gone();
    if (fault == FaultKind::TokenExpires) m_tokens.ExpireAccess();
    const std::optional<WebAnswer> instead = FaultAnswer(*fault, request);
    WebAnswer answer = instead ? *instead : RealAnswer(request, fault);
    answer.ending = EndingOf(*fault);
    return answer;
  }

  WebAnswer RealAnswer(const WebRequest& request, std::optional<FaultKind> fault) {
    if (IsBelow(request, "v1.0")) return m_graph->Answer(request, fault);
    if (std::optional<WebAnswer> answer = m_identity->Answer(request)) return *answer;
    const bool isWebApp = IsBelow(request, "view.aspx") || IsBelow(request, "notebooks");
    if (!isWebApp || request.method != "GET") return Nowhere();
    WebAnswer answer;
    answer.type = "text/html; charset=utf-8";
    answer.body =
        SmallPage("OneNote on the web",
                  "<p>The practice notebook has no pages on the web: here the real service would show "
                  "what the link names.</p>");
    return answer;
  }

  const ServiceOptions m_options;
  const std::unique_ptr<NotebookLibrary> m_library;
  TokenBook m_tokens;
  FaultPlan m_faults;
  RequestLog m_log;
  std::string m_host;
  std::optional<IdentityRoutes> m_identity;
  std::optional<GraphRoutes> m_graph;
  std::atomic<bool> m_isReady = false;
  std::unique_ptr<WebServer> m_web;
};

PracticeService::PracticeService(std::unique_ptr<Server> server) : m_server(std::move(server)) {}
PracticeService::~PracticeService() = default;

Result<std::unique_ptr<PracticeService>> PracticeService::Start(std::unique_ptr<NotebookLibrary> library,
                                                                const ServiceOptions& options) {
  auto server = std::make_unique<Server>(std::move(library), options);
  if (Status<> started = server->Start(); !started.ok()) return Failure{started.error()};
  return std::unique_ptr<PracticeService>(new PracticeService(std::move(server)));
}

int PracticeService::Port() const {
  return m_server->Web().Port();
}

Endpoints PracticeService::Addresses() const {
  return m_server->Addresses();
}

FaultPlan& PracticeService::Faults() {
  return m_server->Faults();
}

std::vector<std::string> PracticeService::Requests() const {
  return m_server->Log().All();
}

void PracticeService::ForgetRequests() {
  m_server->Log().Clear();
}

int PracticeService::Connections() const {
  return m_server->Web().Connections();
}

PracticeService::Tokens PracticeService::IssueTokens() {
  const TokenBook::Pair pair = m_server->Tokens().Issue();
  return {pair.access, pair.refresh};
}

std::string PracticeService::IssueCode() {
  return m_server->Tokens().NewCode(m_server->Identity().RedirectUri());
}

void PracticeService::ExpireAccessTokens() {
  m_server->Tokens().ExpireAccess();
}

}  // namespace quill::practice
