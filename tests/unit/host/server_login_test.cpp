#include <gtest/gtest.h>

#include "host/account/account_place.h"
#include "host/surroundings/server_name.h"

namespace kelvane::host_test {
namespace {

using namespace host;

TEST(ServerName, SaysWhatIsConnectedTo) {
    EXPECT_EQ(ServerNameOf("Driver=X;Server=db.local;Database=books;UID=a;PWD=b"),
              "books on db.local");
    EXPECT_EQ(ServerNameOf("server=db.local"), "db.local");
    EXPECT_EQ(ServerNameOf("DATABASE={my books}"), "my books");
    EXPECT_EQ(ServerNameOf("DSN=books;PWD=secret"), "books");
    EXPECT_EQ(ServerNameOf("PWD=secret"), "database");
}

TEST(AccountPlace, NeverNamesAPassword) {
    const auto place = AccountPlace::Database("Driver=X;Server=s;Database=d;UID=k;PWD=secret");
    EXPECT_TRUE(place.IsOnServer());
    EXPECT_EQ(place.Name(), "d on s");
    EXPECT_EQ(AccountPlace::File("/a/b").Name(), "/a/b");
    EXPECT_FALSE(AccountPlace::File("/a/b").IsOnServer());
}

TEST(AccountPlace, KeepsAPasswordOutOfItsConnectionString) {
    const auto place = AccountPlace::Database("Server=s;UID=k", {},
                                              std::make_shared<const database::Secret>("geheim"));
    EXPECT_EQ(place.ConnectionString(), "Server=s;UID=k");
}

}  // namespace
}  // namespace kelvane::host_test
