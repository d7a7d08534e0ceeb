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
    /// The label's one; made when it has none.
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
    QString m_written; ///< what this put on the label; another text is somebody else's and the new plain text
};
