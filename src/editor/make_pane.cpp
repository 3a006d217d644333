#include "editor/make_pane.h"

#include "editor/pane.h"

#include <QAccessibleWidget>
#include <Qsci/qsciscintilla.h>

namespace {

/// A pane as a plain widget with a name: the component's own interface counts characters from the text's start at
/// each move of the caret.
QAccessibleInterface* PlainPane(const QString& className, QObject* object)
{
    if (className != QLatin1String("QsciScintilla") || !object->isWidgetType())
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::EditableText);
}

} // namespace

std::unique_ptr<EditorPane> MakePane(QWidget* parent)
{
    return std::make_unique<ScintillaPane>(parent);
}

QWidget* WidgetOf(EditorPane& pane)
{
    return static_cast<ScintillaPane&>(pane).Widget();
}

void SetUpAccessibility(bool tellText)
{
    QAccessible::removeFactory(PlainPane);
    if (!tellText)
        QAccessible::installFactory(PlainPane);
}

bool IsKeyOfText(QKeyCombination key)
{
    return ScintillaPane::HasKey(key.toCombined());
}
