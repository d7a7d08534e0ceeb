#pragma once

#include "AutoRunInfoEntityPtr.h"
#include "ui/ErrorBubble.h"

#include "base-ui/TLBaseDialog.h"

#include <memory>

namespace Ui {
class AutoRunEditWidget;
}

/// Asks for the web address of an entry. Accepts the dialog only after it has written a valid address into
/// the entry, and otherwise leaves the entry alone; an invalid address is reported in a bubble, and the
/// dialog stays open. GUI thread. The order of the virtual operations, which follow those of the base, is
/// part of the contract.
class AutoRunEditWidget : public TLBaseDialog
{
    Q_OBJECT

public:
    explicit AutoRunEditWidget(QWidget* parent = nullptr);
    ~AutoRunEditWidget() override;

    /// Sets the entry to fill in. Null only sets the texts, and OK then does nothing.
    void SetData(const AutoRunInfoEntityPtr& entry);
    AutoRunInfoEntityPtr GetData() const;

    /// Whether the text is an address that the client accepts; shows the bubble if not. Changes nothing.
    bool CheckInput();

    /// The text before the field.
    virtual QString GetTitleText() const;
    /// The text in the field while it is empty.
    virtual QString GetPlaceholderText() const;

    void AdjustForDpi() override;
    void ChangeSkin() override;

private Q_SLOTS:
    void SlotOkBtnClicked();
    void SlotCancelBtnClicked();
    void SlotTextChanged(const QString& text);

private:
    Q_DISABLE_COPY(AutoRunEditWidget)

    void ShowTexts();

    std::unique_ptr<Ui::AutoRunEditWidget> m_ui;
    AutoRunInfoEntityPtr m_entry;
    ErrorBubble m_error;
};
