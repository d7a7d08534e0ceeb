#pragma once

#include "notices/NoticeAction.h"
#include "notices/NoticeKind.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QVector>
#include <QtWidgets/QFrame>

#include <functional>

class IconLabel;
class QHBoxLayout;
class QLabel;
class QProgressBar;
class QToolButton;

/// One bar of a `NoticeBar`.
class NoticeItem final : public QFrame, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit NoticeItem(QWidget* parent = nullptr);

    void Set(NoticeKind kind, const QString& text, const QVector<NoticeAction>& actions,
             const std::function<void()>& dismissed);
    void SetText(const QString& text);
    void SetProgress(int percent);
    QString GetText() const;

    void AdjustForDpi() override;

Q_SIGNALS:
    /// The user is done with the bar: hide it, then call `then`, which may be empty.
    void SigDone(const std::function<void()>& then);

protected:
    void changeEvent(QEvent* event) override;

private:
    void Retranslate();

    IconLabel* m_icon;
    QLabel* m_text;
    QHBoxLayout* m_row;
    QHBoxLayout* m_buttons;
    QToolButton* m_close;
    QProgressBar* m_progress;
    std::function<void()> m_dismissed;
};
