#include "Fade.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QStyle>
#include <QtWidgets/QWidget>

namespace {

constexpr int FadeTime = 140; // [ms]

} // namespace

Fade::Fade(QWidget* widget) : m_widget(widget)
{
    setStartValue(0.0);
    setEndValue(0.0);
    connect(this, &QVariantAnimation::valueChanged, widget, [widget] { widget->update(); });
}

Fade::~Fade() = default;

qreal Fade::GetOpacity() const
{
    return currentValue().toReal();
}

void Fade::GoTo(qreal opacity)
{
    const qreal from = GetOpacity();
    stop();
    const bool animated =
        m_widget->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, m_widget) > 0;
    setStartValue(from);
    setEndValue(opacity);
    setDuration(animated ? FadeTime : 0);
    start();
}

void Fade::Reset()
{
    const QSignalBlocker quiet(this);
    stop();
    setStartValue(0.0);
    setEndValue(0.0);
    setCurrentTime(0);
}
