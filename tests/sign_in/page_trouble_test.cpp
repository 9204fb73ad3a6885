#include <openssl/evp.h>
#include <openssl/x509.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <csignal>
#include <memory>

#include "login_service.h"

namespace quill::ui {
namespace {

/// A server that hangs up on everybody until it is told to answer.
class MoodyServer {
 public:
  MoodyServer() {
    m_server.listen(QHostAddress::LocalHost);
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
      QTcpSocket* client = m_server.nextPendingConnection();
      ++connections;
      if (!answers) return client->abort();
      QObject::connect(client, &QTcpSocket::readyRead, client, [client] {
        client->readAll();
        client->write(
            "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n"
            "<title>At last</title>Welcome");
        client->disconnectFromHost();
      });
    });
  }
  Endpoints endpoints() const {
    Endpoints endpoints;
    endpoints.identity = endpoints.signIn = address();
    return endpoints;
  }
  std::string address() const { return "http://127.0.0.1:" + std::to_string(m_server.serverPort()); }
  bool answers = false;
  int connections = 0;

 private:
  QTcpServer m_server;
};

/// A server with a certificate that nobody has vouched for.
class SelfSignedServer {
 public:
  SelfSignedServer() : m_key(EVP_EC_gen("P-256"), EVP_PKEY_free), m_certificate(X509_new(), X509_free) {
    X509_set_version(m_certificate.get(), 2);
    ASN1_INTEGER_set(X509_get_serialNumber(m_certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(m_certificate.get()), -3600);
    X509_gmtime_adj(X509_getm_notAfter(m_certificate.get()), 3600);
    X509_NAME* name = X509_get_subject_name(m_certificate.get());
    const auto* host = reinterpret_cast<const unsigned char*>("localhost");
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, host, -1, -1, 0);
    X509_set_issuer_name(m_certificate.get(), name);
    X509_set_pubkey(m_certificate.get(), m_key.get());
    X509_sign(m_certificate.get(), m_key.get(), EVP_sha256());
    m_server = std::make_unique<httplib::SSLServer>(m_certificate.get(), m_key.get());
    m_server->Get(".*", [this](const httplib::Request&, httplib::Response& out) {
      ++requests;
      out.set_content("<title>Believed</title>Welcome", "text/html");
    });
    port = m_server->bind_to_any_port("127.0.0.1");
    m_thread = std::thread([this] { m_server->listen_after_bind(); });
    while (!m_server->is_running()) std::this_thread::yield();
  }
  ~SelfSignedServer() {
    m_server->stop();
    m_thread.join();
  }
  int port = 0;
  std::atomic<int> requests = 0;

 private:
  std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> m_key;
  std::unique_ptr<X509, decltype(&X509_free)> m_certificate;
  std::unique_ptr<httplib::SSLServer> m_server;
  std::thread m_thread;
};

bool ShowsTitle(const SignInDialog& dialog, const char* title) {
  return WaitUntil([&] {
    return dialog.window->findChild<QWidget*>("labelShowTitle")->accessibleName() == QLatin1String(title);
  });
}

// Without a network the user reads what is wrong, and one key tries again.
TEST(PageTrouble, LoadThatFailsIsToldAndTriedAgain) {
  GuiWorld world;
  MoodyServer server;
  SignInDialog dialog(world, server.endpoints());
  ASSERT_TRUE(WaitUntil([&] { return !dialog.Problem().empty(); }));
  EXPECT_EQ(dialog.Problem(), server.address().substr(7) + " could not be reached.");
  EXPECT_EQ(Focused(), "&Try again");
  EXPECT_EQ(UnnamedControls(*dialog.window), std::vector<std::string>());
  Picture(*dialog.window, "sign-in-not-reached");
  server.answers = true;
  Press(Qt::Key_Space);
  ASSERT_TRUE(ShowsTitle(dialog, "At last"));
  EXPECT_EQ(dialog.Problem(), "");
  EXPECT_TRUE(WaitUntil([] { return Focused() == "Page of the sign-in service"; }));
}

// Somebody on the network who answers in the service's place gets nothing, and the user no way around it.
TEST(PageTrouble, ServerWithoutAValidCertificateIsRefused) {
  GuiWorld world;
  SelfSignedServer server;
  Endpoints endpoints;
  endpoints.identity = endpoints.signIn = "https://localhost:" + std::to_string(server.port);
  SignInDialog dialog(world, endpoints);
  ASSERT_TRUE(WaitUntil([&] { return !dialog.Problem().empty(); }));
  EXPECT_EQ(dialog.Problem(), "localhost:" + std::to_string(server.port) +
                                  " could not prove that it is the server it says it is.");
  EXPECT_EQ(server.requests, 0);
}

// The service's own words about an error are not hidden behind ours; an error without words has ours.
TEST(PageTrouble, ErrorPageOfTheServiceIsShown) {
  GuiWorld world;
  LoginService service;
  service.pages().Get(kAuthorize, [](const httplib::Request&, httplib::Response& out) {
    out.status = 503;
    out.set_content("<title>Down for the night</title>Back at six.", "text/html");
  });
  service.Start();
  SignInDialog dialog(world, service.endpoints());
  EXPECT_TRUE(ShowsTitle(dialog, "Down for the night"));
  EXPECT_EQ(dialog.Problem(), "");
}

// An empty window would tell nobody what to do.
TEST(PageTrouble, AnswerWithoutAPageIsTold) {
  for (const int status : {204, 500}) {
    GuiWorld world;
    LoginService service;
    service.pages().Get(kAuthorize,
                        [status](const httplib::Request&, httplib::Response& out) { out.status = status; });
    service.Start();
    SignInDialog dialog(world, service.endpoints());
    EXPECT_TRUE(WaitUntil([&] { return dialog.Problem() == "The service sent no page."; })) << status;
  }
}

// A page can lead to nowhere, and the engine lets it.
TEST(PageTrouble, BlankPageIsTold) {
  GuiWorld world;
  LoginService service;
  service.Put(kAuthorize, "<script>onload = () => { location = 'about:blank'; }</script>Soon");
  service.Start();
  SignInDialog dialog(world, service.endpoints());
  EXPECT_TRUE(WaitUntil([&] { return dialog.Problem() == "The service sent no page."; }));
}

// A code that the redirect brought counts although its page could not be loaded.
TEST(PageTrouble, CodeOfAPageThatFailedIsTaken) {
  GuiWorld world;
  MoodyServer server;
  LoginService service;
  service.pages().Get(kAuthorize, [&](const httplib::Request&, httplib::Response& out) {
    out.set_redirect(server.address() + kRedirect + "?code=ABC");
  });
  service.Start();
  SignInDialog dialog(world, service.endpoints());
  ASSERT_TRUE(WaitUntil([&] { return dialog.isOver; }));
  EXPECT_EQ(dialog.answer, (online::SignInResult{"", "ABC"}));
}

// While nothing has come yet, the window says what is going on and can be closed.
TEST(PageTrouble, CanBeClosedWhileAServerIsSilent) {
  GuiWorld world;
  LoginService service;
  service.pages().Get(kAuthorize, [&](const httplib::Request&, httplib::Response&) { service.Hang(); });
  service.Start();
  SignInDialog dialog(world, service.endpoints());
  ASSERT_TRUE(WaitUntil([&] { return !service.CookiesAt(kAuthorize).empty(); }));
  if (qEnvironmentVariableIsSet("QUILL_PICTURES")) ProcessEventsFor(1s);
  Picture(*dialog.window, "sign-in-loading");
  EXPECT_EQ(dialog.Problem(), "");
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitUntil([&] { return dialog.isOver && dialog.window == nullptr; }));
  EXPECT_FALSE(dialog.answer);
}

// The system may end a page's process for want of memory.
TEST(PageTrouble, LostPageIsToldAndTriedAgain) {
  GuiWorld world;
  LoginService service;
  service.PutLogin();
  service.Start();
  SignInDialog dialog(world, service.endpoints());
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("ready"); }));
  qint64 process = 0;
  for (const QObject* object : dialog.window->findChildren<QObject*>())
    if (object->inherits("QWebEnginePage")) process = object->property("renderProcessPid").toLongLong();
  ASSERT_GT(process, 0);
  ASSERT_EQ(::kill(static_cast<pid_t>(process), SIGKILL), 0);
  ASSERT_TRUE(WaitUntil([&] { return !dialog.Problem().empty(); }));
  EXPECT_EQ(dialog.Problem(), "The page stopped working.");
  Picture(*dialog.window, "sign-in-lost");
  Press(Qt::Key_F5);
  EXPECT_TRUE(ShowsTitle(dialog, "Sign in to your account"));
  EXPECT_EQ(dialog.Problem(), "");
}

}  // namespace
}  // namespace quill::ui
