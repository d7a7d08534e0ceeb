#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtGui/QColor>

class QLabel;
class QWidget;

/// Pages may write colours into their texts that were chosen for one theme. Labels below `page` show such a
/// text in colours that can be read on the present background (a contrast of at least 4.5); the text itself
/// stays as the page has it. A child of `page`. GUI thread.
class ReadableLabels final : public QObject
{
    Q_OBJECT

public:
    explicit ReadableLabels(QWidget* page);
    ~ReadableLabels() override;

    /// `color` moved towards `text` as far as it must to be read on `background`.
    static QColor Readable(const QColor& color, const QColor& background, const QColor& text);
    /// The contrast of two colours, 1 to 21, as WCAG 2 has it.
    static double Contrast(const QColor& a, const QColor& b);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* m_page;
};
