#include "notices/NoticeBar.h"

#include "NoticeItem.h"

#include <QtWidgets/QVBoxLayout>

NoticeBar::NoticeBar(QWidget* parent) : QWidget(parent), m_layout(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("notice_bar"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    hide();
}

NoticeBar::~NoticeBar() = default;

void NoticeBar::Show(const QString& id, NoticeKind kind, const QString& text)
{
    Show(id, kind, text, {});
}

void NoticeBar::Show(const QString& id, NoticeKind kind, const QString& text,
                     const QVector<NoticeAction>& actions, const std::function<void()>& dismissed)
{
    NoticeItem*& item = m_items[id];
    if (!item) {
        item = new NoticeItem(this);
        m_layout->addWidget(item);
        connect(item, &NoticeItem::SigDone, this, [this, id](const std::function<void()>& then) {
            const std::function<void()> action = then; // Hide destroys the bar that owns `then`
            Hide(id);
            if (action) {
                action();
            }
        });
    }
    item->SetProgress(-1);
    item->Set(kind, text, actions, dismissed);
    item->show();
    show();
}

void NoticeBar::SetText(const QString& id, const QString& text)
{
    if (NoticeItem* item = m_items.value(id)) {
        item->SetText(text);
    }
}

void NoticeBar::SetProgress(const QString& id, int percent)
{
    if (NoticeItem* item = m_items.value(id)) {
        item->SetProgress(percent);
    }
}

void NoticeBar::Hide(const QString& id)
{
    NoticeItem* item = m_items.take(id);
    if (!item) {
        return;
    }
    m_layout->removeWidget(item);
    item->hide();
    item->deleteLater();
    if (m_items.isEmpty()) {
        hide();
    }
    Q_EMIT SigHidden(id);
}

bool NoticeBar::IsShown(const QString& id) const
{
    return m_items.contains(id);
}

QString NoticeBar::GetText(const QString& id) const
{
    const NoticeItem* item = m_items.value(id);
    return item ? item->GetText() : QString();
}

int NoticeBar::GetCount() const noexcept
{
    return m_items.size();
}
