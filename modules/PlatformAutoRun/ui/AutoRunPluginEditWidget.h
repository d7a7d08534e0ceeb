#pragma once

#include "AutoRunInfoEntityPtr.h"
#include "ui/ErrorBubble.h"

#include "base-ui/TLBaseDialog.h"

#include <QtCore/QStringList>

#include <memory>

namespace Ui {
class AutoRunPluginEditWidget;
}

/// Asks for the app of an entry, from the client's app list. Accepts the dialog only after it has written
/// name and key of the chosen app into the entry, and otherwise leaves the entry alone; without a choice it
/// shows a bubble and stays open. GUI thread. The order of the virtual operations, which follow those of the
/// base, is part of the contract.
class AutoRunPluginEditWidget : public TLBaseDialog
{
    Q_OBJECT

public:
    explicit AutoRunPluginEditWidget(QWidget* parent = nullptr);
    ~AutoRunPluginEditWidget() override;

    /// Sets the keys of apps that are not offered, except the entry's own app. Call it before `SetData`.
    void SetExcludeKeys(const QStringList& keys);
    /// Sets the entry to fill in, and fills the list. With null, or without an app list, leaves the list as
    /// it is.
    void SetData(const AutoRunInfoEntityPtr& entry);
    AutoRunInfoEntityPtr GetData() const;

    /// Writes the chosen app into the entry and returns true. Without a choice, shows the bubble and returns
    /// false. The first of several apps with one name counts. Without an app list, returns false and shows no
    /// bubble.
    bool CheckInput();

    /// The text before the list.
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
    QStringList m_pendingIcons; ///< addresses requested from the image cache
};
