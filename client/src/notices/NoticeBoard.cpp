#include "notices/NoticeBoard.h"

#include "notices/NoticeBar.h"

#include <algorithm>

NoticeBoard::NoticeBoard(QObject* parent) : QObject(parent) {}

void NoticeBoard::SetBar(NoticeBar* bar)
{
    m_bar = bar;
    if (!bar) {
        return;
    }
    connect(bar, &NoticeBar::SigHidden, this, &NoticeBoard::HandleGone);
    const std::vector<Notice> waiting = m_notices;
    for (const Notice& notice : waiting) {
        ShowIn(bar, notice);
    }
}

void NoticeBoard::Show(const QString& id, NoticeKind kind, const Text& text,
                       const std::vector<Action>& actions)
{
    const Notice notice{id, kind, text, actions};
    const auto same = Find(id);
    if (same != m_notices.end()) {
        *same = notice;
    } else {
        m_notices.push_back(notice);
    }
    Q_EMIT SigShown(id, text());
    if (m_bar) {
        ShowIn(m_bar, notice);
    }
}

void NoticeBoard::Hide(const QString& id)
{
    if (m_bar) {
        m_bar->Hide(id);
    }
    HandleGone(id); // also when the bar never showed it
}

void NoticeBoard::Retranslate()
{
    if (m_bar) {
        const std::vector<Notice> shown = m_notices;
        for (const Notice& notice : shown) {
            ShowIn(m_bar, notice);
        }
    }
}

std::vector<NoticeBoard::Notice>::iterator NoticeBoard::Find(const QString& id)
{
    return std::find_if(m_notices.begin(), m_notices.end(),
                        [&id](const Notice& notice) { return notice.id == id; });
}

void NoticeBoard::ShowIn(NoticeBar* bar, const Notice& notice)
{
    QVector<NoticeAction> actions;
    for (const Action& action : notice.actions) {
        actions.append({action.text(), action.trigger, true});
    }
    bar->Show(notice.id, notice.kind, notice.text(), actions);
}

void NoticeBoard::HandleGone(const QString& id)
{
    const auto gone = Find(id);
    if (gone != m_notices.end()) {
        m_notices.erase(gone);
        Q_EMIT SigGone(id);
    }
}
