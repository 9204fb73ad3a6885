#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <nlohmann/json.hpp>
#include <thread>

#include "online/editor_talk.h"
#include "online/fake_host.h"
#include "online/online_main.h"
#include "online/scripted_http.h"
#include "online/service_samples.h"

namespace quill::online {
namespace {

using H = ScriptedHttp;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kSave = R"([{"target":"p:{a}{1}","action":"replace","content":"<p>new</p>"}])";
constexpr const char* kUndone = R"([{"target":"p:{b}{2}","action":"replace","content":"<p>old</p>"}])";

const std::string kOld = samples::Page("<p id=\"p:{a}{1}\">old</p>");
const std::string kNew = samples::Page("<p id=\"p:{b}{2}\">new</p>");
const std::string kBack = samples::Page("<p id=\"p:{c}{3}\">old</p>");

H::Reply ChangeError(const std::string& code, int status = 400) {
  return H::Answer(R"({"error":{"code":")" + code + R"(","message": "x"}})", status);
}
H::Reply Taken() {
  return H::Answer("", 204);
}

/// The user of an editor: wishes on a thread of his own and waits for each answer.
class EditorUser {
 public:
  using Play = std::function<void(EditorUser& user)>;

  EditorUser(std::any request, Play play)
      : m_request(std::any_cast<FindReplaceRequest>(std::move(request))),
        m_thread([this, play = std::move(play)] {
          play(*this);
          m_request.seat.reset();
        }) {}
  ~EditorUser() { m_thread.join(); }

  EditorAnswer Ask(EditorWish::Kind kind, std::string json = {}) {
    std::promise<EditorAnswer> answered;
    m_request.seat->talk().OnAnswer(
        [&answered](EditorAnswer answer) { answered.set_value(std::move(answer)); });
    m_request.seat->talk().Wish({kind, std::move(json)});
    return answered.get_future().get();
  }
  EditorAnswer Save(std::string json) { return Ask(EditorWish::Kind::Save, std::move(json)); }
  EditorAnswer Undo() { return Ask(EditorWish::Kind::Undo); }
  const FindReplaceRequest& request() const { return m_request; }

 private:
  FindReplaceRequest m_request;
  std::thread m_thread;
};

/// A page that is known, and a service that answers in order: first of all with the page.
struct World : AccountWorld {
  explicit World(std::deque<H::Reply> replies = {}) : http(std::move(replies)) {
    host.link =
        "onenote:https://docs.test/7c1f/Documents/Home/"
        "Minutes.one#Week%2012&section-id={5D}&page-id={8A}&end";
    memory.resolvedPages.Remember("id-0", "8a", {"p-1", "s-1"});
  }

  /// Runs the command with this user in front of its window.
  void Run(EditorUser::Play play) {
    std::unique_ptr<EditorUser> user;
    host.playUser = [&](std::any request) {
      user = std::make_unique<EditorUser>(std::move(request), std::move(play));
    };
    MOnlineOneNoteMain(host, session, http, clock).RunInsert(10002);
  }
  std::optional<PageEdit> Replace(const MOnlineOneNoteMain::Replacement& order) {
    return MOnlineOneNoteMain(host, session, http, clock).ReplaceWithoutScreen(order);
  }
  std::string Text(std::string_view key) { return host.Text(key, {}); }

  FakeHost host;
  ScriptedHttp http;
  platform::FixedClock clock{std::chrono::system_clock::time_point{}};
};

// What a user does on a good day: saves, looks, takes it back. The ids that are sent are those of the moment.
TEST(FindReplace, SavesAndTakesBack) {
  World world({H::Answer(kOld), Taken(), H::Answer(kNew), Taken(), H::Answer(kBack)});
  world.Run([&world](EditorUser& user) {
    EXPECT_EQ(user.request().pageTitle, "Week 12");
    EXPECT_EQ(user.request().pageHtml, kOld);
    const EditorAnswer saved = user.Save(kSave);
    EXPECT_TRUE(saved.isDone && saved.canUndo) << saved.problem;
    EXPECT_EQ(saved.pageHtml, kNew);
    EXPECT_EQ(world.host.Progresses(), 0);
    const EditorAnswer undone = user.Undo();
    EXPECT_TRUE(undone.isDone && !undone.canUndo) << undone.problem;
    EXPECT_EQ(undone.pageHtml, kBack);
    EXPECT_FALSE(user.Undo().isDone);
  });
  ASSERT_EQ(world.http.requests.size(), 5u) << world.host.AllTexts();
  EXPECT_EQ(world.http.requests[1].url, "https://graph.test/v1.0/users/id-0/onenote/pages/p-1/content");
  EXPECT_EQ(world.http.requests[1].body, kSave);
  EXPECT_EQ(world.http.requests[3].body, kUndone);
  EXPECT_FALSE(world.host.shownUnderProgress);
  EXPECT_THAT(world.host.messages, IsEmpty());
}

// Closing the window without a save sends nothing, and the command ends; so it does when there is no window.
TEST(FindReplace, EndsWithItsWindow) {
  World closed({H::Answer(kOld)});
  closed.Run([](EditorUser&) {});
  World none({H::Answer(kOld)});
  none.host.playUser = [](const std::any&) {};
  MOnlineOneNoteMain(none.host, none.session, none.http, none.clock).RunInsert(10002);
  for (const World* world : {&closed, &none}) {
    EXPECT_EQ(world->http.requests.size(), 1u);
    EXPECT_THAT(world->host.messages, IsEmpty());
  }
}

// A save that fails says why, in the window, and the next try goes through.
TEST(FindReplace, TellsWhyASaveFailed) {
  World world({H::Answer(kOld), ChangeError("20120", 404), ChangeError("30101", 503), H::Failed(),
               H::Answer(kTokens), Taken(), H::Answer(kNew)});
  world.Run([&world](EditorUser& user) {
    EXPECT_EQ(user.Save(kSave).problem, world.Text("errPageChanged"));
    EXPECT_THAT(user.Save(kSave).problem, HasSubstr("503, 30101"));
    const EditorAnswer unanswered = user.Save(kSave);
    EXPECT_EQ(unanswered.problem, world.Text("errSaveNotSent"));
    EXPECT_FALSE(unanswered.isDone || unanswered.canUndo);
    EXPECT_TRUE(user.Save(kSave).isDone);
  });
  EXPECT_EQ(world.http.left(), 0u);
  EXPECT_EQ(platform::HeaderValue(world.http.requests.back().headers, "Authorization"), "Bearer at-1");
}

// The save was taken and the page could not be read again: it is read when it is needed.
TEST(FindReplace, ReadsThePageLateForTheWayBack) {
  World world({H::Answer(kOld), Taken(), ChangeError("19999", 500), ChangeError("19999", 500),
               H::Answer(kNew), Taken(), H::Answer(kBack)});
  world.Run([&world](EditorUser& user) {
    const EditorAnswer saved = user.Save(kSave);
    EXPECT_TRUE(saved.isDone && saved.canUndo);
    EXPECT_EQ(saved.pageHtml, "");
    EXPECT_EQ(user.Undo().problem, world.Text("errGetContentFailure"));
    EXPECT_TRUE(user.Undo().isDone);
  });
  EXPECT_EQ(world.http.left(), 0u);
  EXPECT_EQ(world.http.requests[5].body, kUndone);
}

// Somebody else has changed the page between the save and its reading: nothing of his is overwritten.
TEST(FindReplace, DoesNotTakeBackOverAnothersWork) {
  World world({H::Answer(kOld), Taken(), H::Answer(samples::Page("<h1 id=\"h1:{x}{1}\">His</h1>"))});
  world.Run([&world](EditorUser& user) {
    EXPECT_TRUE(user.Save(kSave).canUndo);
    EXPECT_EQ(user.Undo().problem, world.Text("errPageChanged"));
  });
  EXPECT_EQ(world.http.requests.size(), 3u);
}

// Cancel in the progress of a save is no trouble to be told.
TEST(FindReplace, SaysNothingAboutACancelledSave) {
  World world({H::Answer(kOld)});
  world.Run([&world](EditorUser& user) {
    world.host.cancelAfterQuestions = 0;
    const EditorAnswer answer = user.Save(kSave);
    EXPECT_FALSE(answer.isDone);
    EXPECT_EQ(answer.problem, "");
  });
  EXPECT_EQ(world.http.requests.size(), 1u);
}

// The same without a window, for scripts: sent once, or only looked at.
TEST(FindReplace, WorksWithoutAScreen) {
  World world({H::Answer(kOld), Taken()});
  const auto edit = world.Replace({"OLD", "new"});
  ASSERT_TRUE(edit) << world.host.AllTexts();
  EXPECT_EQ(edit->matchCount, 1u);
  EXPECT_EQ(edit->json, kSave);
  EXPECT_EQ(world.http.requests[1].body, kSave);

  World trial({H::Answer(kOld)});
  EXPECT_EQ(trial.Replace({"old", "new", true, true})->json, kSave);
  EXPECT_EQ(trial.http.requests.size(), 1u);

  World refused({H::Answer(kOld), ChangeError("20120", 404)});
  EXPECT_FALSE(refused.Replace({"old", "new"}));
  EXPECT_THAT(refused.host.messages, ElementsAre(refused.Text("errPageChanged")));
  for (const auto& [html, text] :
       {std::pair(kNew, world.Text("msgEndFind")), std::pair(kNew + "<", std::string("Xml error!"))}) {
    World nothing({H::Answer(html)});
    EXPECT_FALSE(nothing.Replace({"old", "new"}));
    EXPECT_THAT(nothing.host.messages, ElementsAre(text));
  }
}

}  // namespace
}  // namespace quill::online
