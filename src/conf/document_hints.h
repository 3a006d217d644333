#pragma once

#include "conf/line_hints.h"

#include <QObject>
#include <memory>

/// The hints of the current document, by the words and lists of its mode, which are made once until they change.
class DocumentHints : public QObject
{
    Q_OBJECT

public:
    /// Hints of lines first to last, held within the text. Of a text above 4 MB an equal key is looked for near them.
    std::vector<LineHint> InLines(int first, int last);
    /// The words or the lists of files are others.
    void Forget();

signals:
    void Changed(); ///< the size of a sheet has become known: a look may find more

private:
    const HintContext& Context();
    QSize SizeOf(const QString& value);

    std::unique_ptr<HintContext> context;
    QHash<QString, QSize> sizes; ///< by value; empty while it is asked for
    int mode = 0;                ///< that `context` was made for
};
DocumentHints& HintsOfDocument();

/// "Next Mark", "Previous Mark": the caret goes to the next line that something is to be said of, round the ends of the
/// document; the status bar says it.
void GotoMark(bool forward);

/// Puts the word that was probably meant in place of the one in the hint's line, if it stands there still.
void PutNearestWordIn(const LineHint& hint);

/// Can a document of the current mode have marks?
bool MayHaveMarks();
