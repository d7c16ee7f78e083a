#include "ui/screens/Disclosure.h"

#include "ui/UiTest.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tidlo {

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class DisclosureTest : public UiTest
{
protected:
    ~DisclosureTest() override { qunsetenv("TIDLO_AI_PROXY_HOST"); }

    std::string sentence() const { return disclosure.sentence().toStdString(); }
    std::string request() const { return disclosure.request().toStdString(); }
    void switchExplanations(bool on) { app().defaults().set(UserDefaults::explanations, on); }

    Disclosure disclosure{app()};
};

ExplainRequest requestWith(const QByteArray &body)
{
    return {.host = QStringLiteral("explain.example:8443"),
            .path = "/explain",
            .headers = {{"Content-Type", "application/json"}},
            .body = body};
}

} // namespace

TEST_F(DisclosureTest, GivesAnExampleWhileNothingWasSent)
{
    EXPECT_EQ(disclosure.title(), QStringLiteral("What is sent"));
    EXPECT_THAT(sentence(), StartsWith("Each scan asks localhost:8443. "));
    EXPECT_THAT(request(), StartsWith("POST /explain HTTP/1.1\nHost: localhost:8443\nContent-Type: application/json\n"
                                      "X-Device-UUID: FEDCBA98-"));
    EXPECT_THAT(request(), HasSubstr("\n\n{\"contents\":[{\"parts\":[{\"text\":\"You are Tidlo"));
    EXPECT_THAT(request(), HasSubstr("\\ntitle: Rebuildable project folders\\n"));
    EXPECT_EQ(disclosure.rest(), QString());
}

TEST_F(DisclosureTest, SaysThatNobodyIsAskedWhileExplanationsAreOff)
{
    EXPECT_EQ(times(disclosure, &Disclosure::changed, [this] { switchExplanations(false); }), 1);
    EXPECT_THAT(sentence(), StartsWith("Explanations are off, so nobody is asked. "));
    switchExplanations(true);
    EXPECT_THAT(sentence(), StartsWith("Each scan asks "));
}

TEST_F(DisclosureTest, ShowsWhatWasSentAndCopiesItAsItIs)
{
    const ExplainRequest sent = requestWith("{\"text\":\"a\\nb \u202e\"}");
    EXPECT_EQ(times(disclosure, &Disclosure::changed, [&] { app().setSent(sent); }), 1);
    switchExplanations(false); // This changes nothing about what was sent.

    EXPECT_EQ(disclosure.title(), QStringLiteral("What was sent"));
    EXPECT_EQ(sentence(), "To explain the last scan, explain.example:8443 was asked with this, and nothing else:");
    EXPECT_EQ(request(), "POST /explain HTTP/1.1\nHost: explain.example:8443\nContent-Type: application/json\n"
                         "Content-Length: 19\n\n{\"text\":\"a\\nb \\u202e\"}");
    disclosure.copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString::fromUtf8(textOf(sent)));
}

TEST_F(DisclosureTest, ShowsTheBeginningOfALongRequestAndCopiesTheWhole)
{
    const qsizetype head = textOf(requestWith(QByteArray(10'000, 'x'))).size() - 10'000;
    app().setSent(requestWith(QByteArray(20'000 - head, 'x')));
    EXPECT_EQ(disclosure.rest(), QString());
    app().setSent(requestWith(QByteArray(20'001 - head, 'x')));
    EXPECT_EQ(disclosure.rest(), QStringLiteral("1 more character is not shown. “Copy” takes the whole text."));
    EXPECT_EQ(disclosure.request().size(), 20'000);
    disclosure.copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text().size(), 20'001);
}

} // namespace tidlo
