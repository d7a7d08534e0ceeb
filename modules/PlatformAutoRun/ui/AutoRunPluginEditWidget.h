#pragma once

#include "AutoRunInfoEntityPtr.h"
#include "ui/ErrorBubble.h"

#include "base-ui/TLBaseDialog.h"

#include <QtCore/QStringList>

#include <memory>

namespace Ui {
class AutoRunPluginEditWidget;
}

/// Asks for the app of an entry, from those of the client's app list. The result is accepted only after name
/// and key of the chosen app were written into the entry, which is else left as it was; no choice is told of
/// in a bubble, and the dialog stays open. GUI thread. The order of the virtual operations, which follow
/// those of the base, is part of the contract.
class AutoRunPluginEditWidget : public TLBaseDialog
{
    Q_OBJECT

public:
    explicit AutoRunPluginEditWidget(QWidget* parent = nullptr);
    ~AutoRunPluginEditWidget() override;

    /// Keys of the apps that are not offered, but for the app of the entry. Before `SetData`.
    void SetExcludeKeys(const QStringList& keys);
    /// The entry to fill in, and fills the list. With null, or without an app list, the list stays as it is.
    void SetData(const AutoRunInfoEntityPtr& entry);
    AutoRunInfoEntityPtr GetData() const;

    /// Writes the chosen app into the entry; without a choice shows the bubble and is false. Of two apps
    /// with one name the first counts. Without an app list false and no bubble.
    bool CheckInput();

    /// Stands before the list.
    virtual QString GetTitleText() const;

    void AdjustForDpi() override;
    void ChangeSkin() override;

private Q_SLOTS:
    void SlotOkBtnClicked();
    void SlotCancelBtnClicked();
    void SlotRequestImageFinished(bool bSucceed, const QString& strUrl, const QString& strLocal);

private:
    Q_DISABLE_COPY(AutoRunPluginEditWidget)

    void FillCombo(const QString& currentKey);
    void Retranslate();

    std::unique_ptr<Ui::AutoRunPluginEditWidget> m_ui;
    AutoRunInfoEntityPtr m_entry;
    ErrorBubble m_error;
    QStringList m_excludeKeys;
    QStringList m_pendingIcons; ///< addresses asked of the image cache
};
