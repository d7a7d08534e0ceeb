#include "PageStack.h"

#include <QtCore/QEvent>

PageStack::PageStack(QWidget* parent) : QStackedWidget(parent), m_empty(new QWidget)
{
    setObjectName(QStringLiteral("pages"));
    addWidget(m_empty);
    Retranslate();
}

void PageStack::Add(QWidget* content)
{
    if (content && indexOf(content) < 0) {
        addWidget(content);
    }
}

void PageStack::Show(QWidget* content)
{
    Add(content);
    setCurrentWidget(content ? content : m_empty);
}

void PageStack::Remove(QWidget* content)
{
    if (content) {
        content->hide();
        removeWidget(content);
    }
}

void PageStack::changeEvent(QEvent* event)
{
    QStackedWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
}

void PageStack::Retranslate()
{
    setAccessibleName(tr("Page"));
}
