#include "platform/connection_string.h"

#include <gtest/gtest.h>

#include <vector>

namespace kelvane::platform {
namespace {

using Texts = std::vector<std::string>;

// "NAME=VALUE" of every part.
Texts Read(std::string_view text, ValueMarks marks = ValueMarks::Braces) {
    Texts parts;
    for (const ConnectionPart& part : ReadConnectionString(text, marks)) {
        parts.push_back(part.name + '=' + part.value);
    }
    return parts;
}

std::string Hidden(const std::string& text, std::string_view connectionString) {
    return WithoutSecrets(text, SecretsOf(connectionString));
}

TEST(ConnectionString, IsReadWithItsBraces) {
    EXPECT_EQ(Read("Driver={Some Driver};Server=127.0.0.1;PWD={a;b}};c};UID = sa ;;"),
              (Texts{"Driver=Some Driver", "Server=127.0.0.1", "PWD=a;b};c", "UID=sa"}));
    EXPECT_EQ(Read(" \tpwd\t=\t{ a } ;\nb=c\n"), (Texts{"pwd= a ", "b=c"}));
    EXPECT_EQ(Read("PWD={};UID="), (Texts{"PWD=", "UID="}));
    EXPECT_EQ(Read("a=\"b;c=d\""), (Texts{"a=\"b", "c=d\""}));
    EXPECT_EQ(Read(""), Texts());
    EXPECT_EQ(Read("nothing;a=b"), (Texts{"=", "a=b"}));
}

TEST(ConnectionString, ABraceThatIsNotDoubledEndsNothingInTheMiddle) {
    EXPECT_EQ(Read("PWD={a;b}c};UID=x"), (Texts{"PWD=a;b}c", "UID=x"}));
    EXPECT_EQ(Read("PWD={a}b;c};UID=x"), (Texts{"PWD=a}b;c", "UID=x"}));
    EXPECT_EQ(Read("PWD=a}b{c;UID=x"), (Texts{"PWD=a}b{c", "UID=x"}));
    EXPECT_EQ(Read("PWD={never closed;UID=x"), Texts{"PWD={never closed;UID=x"});
}

TEST(ConnectionString, IsReadWithQuotes) {
    EXPECT_EQ(Read("Data Source=\"/a;b \"\"c\"\"\" ; Timeout=5", ValueMarks::Quotes),
              (Texts{"Data Source=/a;b \"c\"", "Timeout=5"}));
    EXPECT_EQ(Read("Data Source={a;b}", ValueMarks::Quotes), (Texts{"Data Source={a", "="}));
}

TEST(ConnectionString, FindsTheFirstValueOfAName) {
    EXPECT_EQ(FindValue("a=1;pAsSwOrD={x};PWD=y", kPasswordNames), "x");
    EXPECT_EQ(FindValue("user id=k", kUserNames), "k");
    EXPECT_EQ(FindValue("PWD=;PWD=y", kPasswordNames), "");
    EXPECT_EQ(FindValue("Database={a;PWD=b}", kPasswordNames), std::nullopt);
    EXPECT_EQ(FindValue("", kUserNames), std::nullopt);
}

TEST(ConnectionString, ValuesGetBracesWhereTheyNeedThem) {
    EXPECT_EQ(OdbcValue("plain 1"), "plain 1");
    EXPECT_EQ(OdbcValue(""), "");
    EXPECT_EQ(OdbcValue(" blank"), "{ blank}");
    EXPECT_EQ(OdbcValue("a\nb"), "{a\nb}");
    EXPECT_EQ(OdbcValue("{x}"), "{{x}}}");
    for (const char sign : std::string_view("[]{}(),;?*=!@")) {
        const std::string value = std::string("a") + sign;
        EXPECT_EQ(PlainValue(OdbcValue(value), ValueMarks::Braces), value);
        EXPECT_TRUE(OdbcValue(value).starts_with('{')) << sign;
    }
}

TEST(ConnectionString, EveryMarkedValueIsReadAsItWas) {
    for (const std::string value : {"", "a", "}", "}}", "a;b}c", "\"", "a\"\";b", " x ", "{\"}"}) {
        for (const auto marks : {ValueMarks::Braces, ValueMarks::Quotes}) {
            EXPECT_EQ(Read("n=" + MarkedValue(value, marks) + ";m=1", marks),
                      (Texts{"n=" + value, "m=1"}));
        }
    }
}

TEST(ConnectionString, ANewValueTakesTheOldOnesPlace) {
    EXPECT_EQ(WithValue("Driver=A;Server=B", kUserNames, "sa"), "Driver=A;Server=B;UID=sa;");
    EXPECT_EQ(WithValue("pwd = a;Driver={A;B};Password={o;d};", kPasswordNames, "a;b}"),
              "Driver={A;B};PWD={a;b}}};");
    EXPECT_EQ(WithValue("", kPasswordNames, ""), "PWD=;");
}

TEST(ConnectionString, EndsWithASemicolon) {
    EXPECT_EQ(WithEnd("PWD={x}"), "PWD={x};");
    EXPECT_EQ(WithEnd("a=b;"), "a=b;");
    EXPECT_EQ(WithEnd("a=b; "), "a=b; ");
    EXPECT_EQ(WithEnd(""), "");
}

TEST(HiddenPasswords, WhereverTheyStand) {
    EXPECT_EQ(WithoutPasswords("not expected: Server=s;PWD=geheim;UID=k more"),
              "not expected: Server=s;PWD=***;UID=k more");
    EXPECT_EQ(WithoutPasswords("pwd = {a;}}b};x, Password=c"), "pwd =***;x, Password=***");
    EXPECT_EQ(WithoutPasswords("PASSWORD\t=  x y ;UID=k"), "PASSWORD\t=***;UID=k");
    EXPECT_EQ(WithoutPasswords("Pwd=a;x;pWd=b;password=c"), "Pwd=***;x;pWd=***;password=***");
    EXPECT_EQ(WithoutPasswords("Store Password=a;b"), "Store Password=***;b");
    EXPECT_EQ(WithoutPasswords("PWD=a;next line\nPWD=b\nlast"), "PWD=***;next line\nPWD=***\nlast");
    EXPECT_EQ(WithoutPasswords("nothing to hide; a=b"), "nothing to hide; a=b");
    EXPECT_TRUE(HoldsPassword("a PWD=b"));
    EXPECT_TRUE(HoldsPassword("a pwd =b"));
    EXPECT_FALSE(HoldsPassword("UID=b;PWDX=c"));
    EXPECT_FALSE(HoldsPassword("PWD"));
}

TEST(HiddenPasswords, WithStrayMarksAndQuotes) {
    EXPECT_EQ(WithoutPasswords("PWD={a;b}c};UID=k"), "PWD=***;UID=k");
    EXPECT_EQ(WithoutPasswords("cannot open [PWD={a;b}c}] at all"), "cannot open [PWD=***");
    EXPECT_EQ(WithoutPasswords("PWD={never closed; UID=k"), "PWD=***");
    EXPECT_EQ(WithoutPasswords("Password=\"a;\"\"b\";UID=k"), "Password=***;UID=k");
    EXPECT_EQ(WithoutPasswords("Password = 'a;''b' ;UID=k"), "Password =***;UID=k");
    EXPECT_EQ(WithoutPasswords("PWD=a\"b'c}d;UID=k"), "PWD=***;UID=k");
    EXPECT_EQ(WithoutPasswords("\"DSN=x;PWD=a\" is refused"), "\"DSN=x;PWD=***");
}

TEST(HiddenPasswords, WhoseBeginningIsInAnothersMarks) {
    EXPECT_EQ(WithoutPasswords("Password=\"c\"x;\nPWD={a\";secret};UID=k"), "Password=***;UID=k");
    EXPECT_EQ(WithoutPasswords("PWD={a;PWD=b;c};UID=k"), "PWD=***;UID=k");
    for (const std::string& form : SecretsOf("Password=\"c\"x;\nPWD={a\";secret};UID=k")) {
        if (form == "a\";secret") return;
    }
    ADD_FAILURE() << "the second password is no secret";
}

TEST(Secrets, NoFormOfAPasswordIsShown) {
    const std::string text = "Driver=A;PWD={a;b}}c};UID=sa;";
    EXPECT_EQ(Hidden("in [" + text + "] failed", text), "in [***;] failed");
    EXPECT_EQ(Hidden("PWD={a;b}}c} and a;b}c and {a;", text), "PWD=*** and *** and ***;");
    EXPECT_EQ(Hidden("hunter22 and hunter2", "password=hunter2"), "***2 and ***");
    EXPECT_EQ(Hidden("nothing", "Driver=A"), "nothing");
    EXPECT_EQ(Hidden("nothing", ""), "nothing");
    EXPECT_EQ(Hidden("text", "PWD=;Server=x"), "text");
}

TEST(Secrets, AreKnownInEveryWayOfWriting) {
    EXPECT_EQ(Hidden("no a;b}c nor {a;b}c} nor {a;b}}c}", "PWD={a;b}c};Server=s"),
              "no *** nor *** nor ***");
    EXPECT_EQ(Hidden("no a;b}} nor a;b} nor {a;b", "PWD={a;b}}};Server=x"),
              "no *** nor *** nor {***");
    EXPECT_EQ(Hidden("no \"a;\"\"b\" nor a;\"b", "Provider=x;Password = \"a;\"\"b\""),
              "no *** nor ***");
    EXPECT_EQ(Hidden("no 'a;b' nor a;b", "Password='a;b';UID=k"), "no *** nor ***");
    EXPECT_EQ(Hidden("no one nor two", "PWD=one;x=y;pwd = two"), "no *** nor ***");
    EXPECT_EQ(Hidden("no secret", "Extended Properties=\"DSN=x;PWD=secret\";a=b"), "no ***");
    EXPECT_EQ(WithoutSecrets("no a}b nor {a}}b} nor c", SecretsOf("PWD=c", "a}b")),
              "no *** nor *** nor ***");
}

TEST(Secrets, MayBeHiddenAsWholeWordsAlone) {
    EXPECT_EQ(WithoutSecrets("x1 and 1x and _x, but x and 'x'", SecretsOf("PWD=x"), true),
              "x1 and 1x and _x, but *** and '***'");
}

}  // namespace
}  // namespace kelvane::platform
