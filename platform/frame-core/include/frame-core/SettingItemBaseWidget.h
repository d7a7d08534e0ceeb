#pragma once

#include "frame-core/FrameCoreExport.h"

#include "base-ui/TLBaseWidget.h"

#include <QtCore/QString>

class QLabel;

/// A page of the settings dialog, or a row of one that the dialog's search reaches too. GUI thread.
///
/// The dialog makes a page when the user first selects it, and keeps it until the dialog closes. It destroys
/// a module's page and makes it again through `ISysSettingFactory::CreateSettingWidget` when the scale, the
/// language or the search word changes, and when the user loads the page again. It first waits for a write of
/// the page and for a dialog over it, but it does not call `SaveData`: a page that saves only there loses its
/// edits.
///
/// The order of the virtual operations, which follow those of `QWidget`, is part of the contract.
class TL_FRAME_CORE_EXPORT SettingItemBaseWidget : public TLBaseWidget
{
    Q_OBJECT

public:
    explicit SettingItemBaseWidget(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~SettingItemBaseWidget() override;

    /// The word that the user is looking for, so that the page can highlight it; empty when there is none.
    /// Called after the page is made and whenever the word changes. Does nothing by default.
    virtual void SetKeyword(const QString& keyword);
    /// Called when the dialog closes, also when the client ends. A page with unwritten edits writes them now
    /// and reports by a signal. Called again when the dialog stayed open after all, so a page without new
    /// edits does nothing. A page that writes with every edit needs none of this, which is the default.
    virtual void SaveData();

Q_SIGNALS:
    /// The page emits it when the user's change has been stored.
    void SigSaveSucceed();
    /// The page emits it when the change could not be stored. The page keeps showing the change.
    void SigSaveFailed();

protected:
    /// Highlights each occurrence of `keyword`, in any case, in the label's text, which counts as plain text.
    /// An empty keyword removes the highlight. Does nothing for a null label. A text that the label is given
    /// later has no highlight; call this again for it.
    void SetLabelHighlighted(QLabel* label, const QString& keyword);
};
