#include "either_text.h"

namespace {

struct TellingTest : EitherTextTest
{
    TellingTest()
    {
        WidgetOf(*pane)->show();
        QObject::connect(subject, &DocumentText::SelectionChanged, subject, [this] { heard += 's'_L1; });
        QObject::connect(subject, &DocumentText::TextChanged, subject, [this] { heard += 't'_L1; });
        QObject::connect(subject, &DocumentText::ModifiedChanged, subject,
                         [this](bool modified) { heard += modified ? 'M'_L1 : 'm'_L1; });
    }

    template <class Act>
    QString HeardOf(Act act)
    {
        QCoreApplication::processEvents();
        heard.clear();
        act();
        QCoreApplication::processEvents();
        return heard;
    }

    QString heard;
};

ON_EITHER_TEXT(TellingTest);

} // namespace

// Catches: a change that is not told, told twice, or told by one keeper of a text and not by the other; an event for
// each edit of a batch.
TEST_P(TellingTest, EachChangeIsToldOnce)
{
    subject->LoadBytes("one\ntwo\n");
    EXPECT_EQ(HeardOf([&] { subject->AddText(u"x"_s); }), u"tMs"_s);
    EXPECT_EQ(HeardOf([&] { subject->ReplaceSel(u"y"_s); }), u"ts"_s);
    EXPECT_EQ(HeardOf([&] { subject->SetSel({1, 0, 1, 2}, false); }), u"s"_s);
    EXPECT_EQ(HeardOf([&] { subject->SetSel({1, 0, 1, 2}, false); }), QString());
    EXPECT_EQ(HeardOf([&] { subject->ExecuteCmd(CmdClearSelection); }), u"s"_s);
    EXPECT_EQ(HeardOf([&] { subject->SetModified(false); }), u"m"_s);
    EXPECT_EQ(HeardOf([&] {
                  const EditBatch batch(*subject);
                  for (int i = 0; i < 10; ++i) {
                      const EditBatch inner(*subject);
                      subject->AddText(u"x"_s);
                  }
              }),
              u"tMs"_s);
    EXPECT_EQ(HeardOf([&] { subject->ExecuteCmd(CmdReplaceAll); }), QString());
    EXPECT_EQ(HeardOf([&] { subject->DeleteLine(99); }), QString());
    EXPECT_EQ(HeardOf([&] { subject->DeleteLine(0); }), u"ts"_s);
    EXPECT_EQ(HeardOf([&] { subject->SetText(u"new"_s); }), u"ts"_s);
}
