#include "macro/basic_words.h"

#include "frame/settings/settings.h"

#include <array>

namespace {

constexpr int MostBasicWords = 10'000; ///< of a section; the table may be anybody's

struct BasicSection
{
    const char *Section, *Heading;
    QString LanguageObject::*Field; ///< that colours its words
};

constexpr std::array BasicSections = {
    BasicSection{"macBASIC", "--------BASIC-------", &LanguageObject::Keywords},
    BasicSection{"macSTATIC", "------STATICS-------", &LanguageObject::TagEntities},
    BasicSection{"macOP", "-----OPERATORS------", &LanguageObject::Operators},
    BasicSection{"macVARY", "", &LanguageObject::TagAttributeNames},
    BasicSection{"macTEXT", "--------TEXT--------", &LanguageObject::TagElementNames},
};

} // namespace

std::vector<BasicWordGroup> BasicWords()
{
    const QString table = QStringLiteral("basic");
    std::vector<BasicWordGroup> groups;
    for (const BasicSection& row : BasicSections) {
        const QString section = QLatin1String(row.Section);
        const int count = qMin(ReadIni(section, QStringLiteral("count"), table).toInt(), MostBasicWords);
        BasicWordGroup& group = groups.emplace_back(QLatin1String(row.Heading));
        for (int i = 1; i <= count; ++i)
            group.Words << ReadIni(section, QString::number(i), table);
    }
    return groups;
}

LanguageObject BasicLanguage(const std::vector<BasicWordGroup>& groups)
{
    LanguageObject language;
    for (size_t i = 0; i < groups.size() && i < BasicSections.size(); ++i)
        language.*BasicSections[i].Field = groups[i].Words.join(u'\n');
    language.SingleLineComments = QStringLiteral("#");
    language.StringDelims = QStringLiteral("\"");
    return language;
}
