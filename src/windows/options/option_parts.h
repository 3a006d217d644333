#pragma once

#include <QString>
#include <functional>
#include <vector>

class QWidget;

/// What the search leads to: a part of a page.
struct OptionPart
{
    QString Name;
    QString Place;                      ///< the frame that it stands in
    QString Words;                      ///< found by these too
    QWidget* Part;                      ///< gets the keyboard
    std::function<void()> BringUp = {}; ///< before that
};

/// All parts of a page's content that take the keyboard and have a name, in their order.
std::vector<OptionPart> PartsOf(const QWidget& content);

/// The part is found by its settings' keys in user.ini too.
void NameSetting(QWidget& part, const char* keys);
