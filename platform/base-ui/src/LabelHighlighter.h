#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/Qt>

class QLabel;

/// Keeps the plain text of a label that shows it with a highlighted word. A child of the label.
class LabelHighlighter final : public QObject
{
    Q_OBJECT

public:
    /// The label's highlighter; makes it when there is none.
    static LabelHighlighter* Of(QLabel* label);

    ~LabelHighlighter() override;

    void Highlight(const QString& keyword);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit LabelHighlighter(QLabel* label);

    void Write();

    QLabel* m_label;
    QString m_keyword;
    QString m_plain;
    Qt::TextFormat m_format; ///< of the label when nothing is highlighted
    QString m_written;       ///< the text that this set on the label; any other text is the new plain text
};
