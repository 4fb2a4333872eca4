#include "platform/HidMailbox.h"

#include "fakes/TestPlatform.h"

#include <cerrno>

namespace {
/// Plays words to a mailbox whose report of rest is "stop", and answers what came of them.
///   a number: the time; up, down, stop, init: written; ask: read; take: the answer is taken
///   begin: the next transfer begins; 1 to 9 after a #: it ends with that answer; fail: it ends with an error
QString played(const char* script)
{
    HidMailbox mailbox;
    mailbox.setRestReport({5, 's'});
    QStringList said;
    double now = 0;
    std::vector<uint8_t> report;
    const auto tell = [&](const HidMailbox::News& news) {
        static const char* const kWords[] = {"", "late", "lost", "found"};
        if (news.kind != HidMailbox::News::Kind::None)
            said << kWords[size_t(news.kind)] + (news.answer.empty() ? "" : QString::number(news.answer[1]));
    };
    const auto begin = [&] {
        const HidMailbox::Transfer* const next = mailbox.begin(now);
        const QString probe = next && next->isProbe ? "?" : "";
        said << (!next ? "-" : probe + QChar(next->bytes[0] == 4 ? 'r' : next->bytes[1]));
    };
    const auto take = [&] {
        said << (mailbox.takeAnswer(report, now) == 0 ? QString("took%1").arg(report[1]) : "nothing");
    };
    const std::map<QString, std::function<void()>> kDeeds {{"ask", [&] { mailbox.read(report, now); }},
        {"take", take}, {"begin", begin}, {"fail", [&] { tell(mailbox.end(EPIPE, {})); }},
        {"watch", [&] { tell(mailbox.giveUpOverdue(now)); }}, {"probe", [&] { mailbox.probe(now); }},
        {"close", [&] { mailbox.close(); }}};
    for (const QString& word : QString(script).split(u' ')) {
        report = {4, 0};
        if (const auto deed = kDeeds.find(word); deed != kDeeds.end())
            deed->second();
        else if (word[0] == u'#')
            tell(mailbox.end(0, {4, uint8_t(word.mid(1).toInt())}));
        else if (word[0].isDigit())
            now = word.toDouble();
        else
            mailbox.write(std::vector {uint8_t(word == "init" ? 3 : 5), uint8_t(word[0].toLatin1())}, now);
    }
    return said.join(u' ');
}
}

TEST(HidMailbox, sendsTheNewestInOrderAndNothingOldOrTwice)
{
    const std::tuple<const char*, const char*, const char*> kTestCases[] = {
        {"up init ask stop begin begin #0 begin #0 begin #1 begin", "s - i r -",
            "in their places, one by one"},
        {"up begin up stop #0 begin #0 begin", "u s -", "what has begun is not replaced"},
        {"up 0.25 begin", "u", "just young enough"},
        {"up 0.26 begin", "s", "too old to be wanted"},
        {"stop 9 begin", "s", "rest never grows old"},
        {"init 9 begin", "i", "nor what moves nothing"},
        {"ask 1 up begin #0 begin", "u r", "the read has not waited long enough"},
        {"ask 0.5 ask 1.01 up begin #0 begin", "r u", "the first question counts"},
        {"ask 9 stop begin", "s", "a stop goes before all"},
        {"init stop ask close begin #0 begin", "s -", "closed, but for the stop"},
        {"up close begin ask begin stop begin", "- - -", "nothing new when closed"},
        // Answers.
        {"ask begin #7 take", "r took7", ""},
        {"ask begin take #7 ask begin #8 take", "r nothing late7 r took8", "late once"},
        {"ask begin take ask #7 begin #8 ask begin #9", "r nothing late7 r late8 r",
            "late until none is due"},
        {"ask 2 begin 4 #7 7 take 7.1 take", "r took7 nothing", "as old as its question"},
        // Failures.
        {"init up begin fail begin #0 begin #0", "i i u", "tried again, before what waits"},
        {"up begin down fail begin fail begin #0 probe begin #0 up begin fail begin",
            "u d lost s ?s found u u", "a newer one is the second try"},
        {"up begin fail begin #0 up begin fail begin", "u u u u", "a success makes good"},
        {"up begin fail ask begin #0 begin fail begin", "u u r r", "each report by itself"},
        {"up begin #0 stop begin fail begin #0 begin", "u s s -", "a stop as well"},
        {"stop begin close fail begin", "s s", "also when closed"},
        {"up begin close fail begin", "u -", ""},
        {"up begin 4.9 watch 5 watch watch begin #0 begin #0 begin", "u lost - s -",
            "overdue, and told once"},
        {"ask begin #7 ask begin fail begin fail take up ask begin #0 begin", "r r r lost nothing s -",
            "nothing but rest to a lost adapter"},
        // Probes.
        {"ask begin take 5 watch #1 begin #0 probe probe begin #0 begin #1 ask begin #2",
            "r nothing lost s ?s ?r found r", "nobody waits any more"},
        {"ask begin 5 watch probe #1 begin #0 begin probe begin fail begin probe begin",
            "r lost ?s ?r - - ?s", "one at a time, given up by a failure"},
        {"probe begin", "-", "of no use to an adapter that answers"},
        {"up begin 5 watch close #0 begin #0 probe begin", "u lost s -", "nor when closed"},
    };
    for (const auto& [script, expected, why] : kTestCases)
        EXPECT_EQ(played(script), expected) << script << ": " << why;
}
