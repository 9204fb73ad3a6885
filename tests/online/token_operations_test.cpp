#include "online/token_operations.h"

#include <gtest/gtest.h>

#include "scripted_http.h"

namespace quill::online {
namespace {

class TokenOperations : public testing::Test {
 protected:
  ScriptedHttp http;
  AccountWorld world;
  ServiceClient client{http};
};

// A pending code becomes tokens; it is good for one exchange, so a refused one must not be tried for ever.
TEST_F(TokenOperations, ExchangeThePendingCodeOnce) {
  RetrieveTokensByCode(world.session, client);
  EXPECT_EQ(client.RequestCount(), 0) << "without a code";
  world.memory.PendingAuthCode = "c-1";
  http.Add(ScriptedHttp::Failed());
  RetrieveTokensByCode(world.session, client);
  EXPECT_EQ(world.account.OnlineOneNoteAccessToken, "at-0") << "no answer changes nothing";
  EXPECT_EQ(world.memory.PendingAuthCode, "c-1");
  world.memory.TryRefreshTokens = 2;
  http.Add(ScriptedHttp::Answer(kTokens));
  RetrieveTokensByCode(world.session, client);
  EXPECT_EQ(http.requests.back().deadline, kTokenDeadline);
  EXPECT_EQ(world.account.OnlineOneNoteRefreshToken, "rt-1");
  EXPECT_EQ(world.memory.TryRefreshTokens, 0);
  EXPECT_EQ(world.memory.PendingAuthCode, "");
  ASSERT_EQ(world.saved.size(), 1u);
  EXPECT_EQ(world.saved[0].OnlineOneNoteAccessToken, "at-1");
  world.memory.PendingAuthCode = "c-2";
  http.Add(ScriptedHttp::Answer(R"({"error":"invalid_grant"})", 400));
  RetrieveTokensByCode(world.session, client);
  EXPECT_EQ(world.account.OnlineOneNoteAccessToken, "");
  EXPECT_EQ(world.memory.PendingAuthCode, "");
  EXPECT_EQ(world.saved.size(), 1u);
}

// A train journey must not sign the user out for good: what an offline refresh empties stays in the file.
TEST_F(TokenOperations, KeepTheFileWhenARefreshFails) {
  http.Add(ScriptedHttp::Failed());
  RefreshTokens(world.session, client);
  EXPECT_EQ(world.account, (Account{"", "", "7c1f", "id-0", "ada@contoso.com"}));
  EXPECT_TRUE(world.saved.empty());
  RefreshTokens(world.session, client);
  EXPECT_EQ(client.RequestCount(), 1) << "nothing to refresh with";
}

// A service that keeps giving refresh tokens only: the fourth time the user has to sign in.
TEST_F(TokenOperations, GiveUpAfterFourRefreshesInARow) {
  const auto refuse = [&] {
    http.Add(ScriptedHttp::Answer(R"({"refresh_token":"rt-9"})"));
    RefreshTokens(world.session, client);
  };
  for (int i = 0; i < 3; ++i) refuse();
  EXPECT_EQ(world.memory.TryRefreshTokens, 3);
  http.Add(ScriptedHttp::Answer(kTokens));
  RefreshTokens(world.session, client);
  EXPECT_EQ(world.memory.TryRefreshTokens, 0) << "a refresh that succeeds starts the count anew";
  EXPECT_EQ(world.saved.size(), 1u);
  for (int i = 0; i < 3; ++i) refuse();
  EXPECT_EQ(world.account.OnlineOneNoteRefreshToken, "rt-9");
  refuse();
  EXPECT_EQ(world.account.OnlineOneNoteRefreshToken, "");
  EXPECT_EQ(world.memory.TryRefreshTokens, 0);
  EXPECT_EQ(world.saved.size(), 1u);
}

// Cancel is no failure: the tokens must survive it.
TEST_F(TokenOperations, LeaveTheTokensWhenTheUserCancels) {
  ServiceClient cancelled(http, [] { return true; });
  const Account before = world.account;
  RefreshTokens(world.session, cancelled);
  EXPECT_EQ(world.account, before);
  EXPECT_EQ(world.memory.TryRefreshTokens, 0);
}

TEST_F(TokenOperations, AskWhoTheUserIs) {
  http.Add(ScriptedHttp::Unauthorized());
  RetrieveUserIdByToken(world.session, client);
  EXPECT_EQ(world.account.OnlineOneNoteUserId, "id-0");
  EXPECT_TRUE(world.saved.empty());
  http.Add(ScriptedHttp::Answer(kUser));
  RetrieveUserIdByToken(world.session, client);
  EXPECT_EQ(world.account, (Account{"at-0", "rt-0", "7c1f", "7c1f0a93b2d84e65", "ada@outlook.com"}));
  EXPECT_EQ(http.requests.back().deadline, kUserDeadline);
  EXPECT_EQ(world.saved.size(), 1u);
  world.account.OnlineOneNoteAccessToken.clear();
  RetrieveUserIdByToken(world.session, client);
  EXPECT_EQ(client.RequestCount(), 2) << "without a token";
}

}  // namespace
}  // namespace quill::online
