#include "ui/LanguageWatch.h"

#include <QtCore/QEvent>
#include <QtWidgets/QWidget>

#include <utility>

LanguageWatch::LanguageWatch(QWidget* widget, std::function<void()> retranslate)
    : QObject(widget), m_retranslate(std::move(retranslate))
{
    widget->installEventFilter(this);
}

LanguageWatch::~LanguageWatch() = default;

bool LanguageWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        m_retranslate();
    }
    return QObject::eventFilter(watched, event);
}
