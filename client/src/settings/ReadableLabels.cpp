#include "ReadableLabels.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QRegularExpression>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

#include <algorithm>
#include <cmath>

namespace {

constexpr double LeastContrast = 4.5;
constexpr int Steps = 20;

double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor Mix(const QColor& a, const QColor& b, double share)
{
    const auto part = [share](double x, double y) { return x + (y - x) * share; };
    return QColor::fromRgbF(part(a.redF(), b.redF()), part(a.greenF(), b.greenF()),
                            part(a.blueF(), b.blueF()));
}

QString WithReadableColors(const QString& html, const QPalette& colors)
{
    static const QRegularExpression named(QStringLiteral("<font color=\"(#[0-9a-fA-F]{6})\">"));
    QString text;
    int from = 0;
    for (auto it = named.globalMatch(html); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const QColor color = ReadableLabels::Readable(QColor(match.captured(1)), colors.color(QPalette::Base),
                                                      colors.color(QPalette::Text));
        text += html.midRef(from, match.capturedStart(1) - from);
        text += color.name();
        from = match.capturedEnd(1);
    }
    return text + html.midRef(from);
}

} // namespace

ReadableLabels::ReadableLabels(QWidget* page) : QObject(page), m_page(page)
{
    qApp->installEventFilter(this);
}

ReadableLabels::~ReadableLabels() = default;

QColor ReadableLabels::Readable(const QColor& color, const QColor& background, const QColor& text)
{
    QColor readable = color;
    for (int i = 1; i <= Steps && Contrast(readable, background) < LeastContrast; ++i) {
        readable = Mix(color, text, static_cast<double>(i) / Steps);
    }
    return readable;
}

double ReadableLabels::Contrast(const QColor& a, const QColor& b)
{
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)}); // by value, not by reference
    return (light + 0.05) / (dark + 0.05);
}

bool ReadableLabels::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Paint) {
        return false;
    }
    auto* const label = qobject_cast<QLabel*>(watched);
    if (label == nullptr || label->textFormat() == Qt::PlainText || !m_page->isAncestorOf(label) ||
        !label->text().contains(QLatin1String("<font color="))) {
        return false;
    }

    QPainter painter(label);
    QStyleOption option;
    option.initFrom(label);
    label->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, label);
    QTextDocument document;
    document.setDefaultFont(label->font());
    document.setDocumentMargin(0);
    document.setHtml(WithReadableColors(label->text(), label->palette()));
    const QRect area = label->contentsRect();
    const QSize size = document.size().toSize();
    painter.translate(
        QStyle::alignedRect(label->layoutDirection(), label->alignment(), size, area).topLeft());
    document.drawContents(&painter);
    return true;
}
