#pragma once

#include "base-ui/BaseUiExport.h"
#include "base-ui/TitleType.h"

#include "base/IDpiAdapter.h"

#include "core/IChangeSkinBase.h"

#include <QtWidgets/QDialog>

class TitleBar;

/// A dialog in the client's look: a title bar of its own to drag it by, a border, and the content below.
/// Escape and the title bar's close button reject it, Enter presses its default button. The title bar follows
/// the scale by itself; `AdjustForDpi` and `ChangeSkin` are for the forms of derived dialogs.
class TL_BASE_UI_EXPORT TLBaseDialog : public QDialog, public IDpiAdapter, public IChangeSkinBase
{
    Q_OBJECT

public:
    /// `titleType` is one of `TitleType`. The title bar has a close button when `flags` contain
    /// `Qt::WindowCloseButtonHint`, and drags the dialog when it is `movable`.
    explicit TLBaseDialog(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowCloseButtonHint,
                          int titleType = TitleType::TitleBar, bool movable = true);
    ~TLBaseDialog() override;

    /// The place for the dialog's form: a widget without name and layout, as wide as the dialog, below the
    /// title bar. Never null; the dialog owns it.
    QWidget* GetContentWidget() const noexcept;

    /// Sets the text of the title bar; with `asWindowTitle`, also the title that the task bar and screen
    /// readers use.
    void SetTitleText(const QString& text, bool asWindowTitle = true);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void FocusForm();

    TitleBar* m_titleBar = nullptr;
    QWidget* m_contentWidget = nullptr;
    bool m_hasFrame = false;
};
