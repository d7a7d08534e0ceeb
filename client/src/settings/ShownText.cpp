#include "ShownText.h"

#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>
#include <QtWidgets/QLabel>

QString ShownText::Of(const QLabel* label)
{
    const QString text = label->text();
    const bool rich = label->textFormat() == Qt::RichText ||
                      (label->textFormat() == Qt::AutoText && Qt::mightBeRichText(text));
    return rich ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}
