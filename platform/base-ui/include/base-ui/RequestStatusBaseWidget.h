#pragma once

#include "base-ui/BaseUiExport.h"
#include "base-ui/RequestStatus.h"
#include "base-ui/TLBaseWidget.h"

#include <QtCore/QList>
#include <QtCore/QPointer>

#include <memory>

class BusyIndicator;
class QLabel;
class QTimer;
class ScaleWatch;
class SignLabel;
class TLPushButton;

/// An area for content that has to be requested first. Shows that the content is loading, that loading failed
/// (with a button to try again), or the content. Loading at first.
class TL_BASE_UI_EXPORT RequestStatusBaseWidget : public TLBaseWidget
{
    Q_OBJECT

public:
    explicit RequestStatusBaseWidget(QWidget* parent = nullptr);
    ~RequestStatusBaseWidget() override;

    /// One of `RequestStatus`.
    int GetStatus() const noexcept;
    /// One of `RequestStatus`; ignores an unknown number. The content hides at once, but the loading sign
    /// appears only after 200 ms, so that a quick answer does not flicker.
    void SetStatus(int status);

    /// From now on shows `widget` only while the status is `RequestStatus::Succeeded`. A widget in this one's
    /// layout stays where it is; any other becomes a child and goes to the end of the layout.
    void AddSucceedWidget(QWidget* widget);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user pressed the button to try again.
    void SigRefresh();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Apply();
    void AdjustForScale();
    void Retranslate();

    int m_status = RequestStatus::Loading;
    int m_lastHeight = 0; ///< [px] of the content, kept while it loads again
    QList<QPointer<QWidget>> m_succeedWidgets;
    QTimer* m_patience;
    QWidget* m_loadingPanel;
    BusyIndicator* m_indicator;
    QLabel* m_loadingLabel;
    QWidget* m_failedPanel;
    SignLabel* m_failedSign;
    QLabel* m_failedLabel;
    TLPushButton* m_refreshButton;
    std::unique_ptr<ScaleWatch> m_scaleWatch;
};
