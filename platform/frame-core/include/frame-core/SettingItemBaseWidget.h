#pragma once

#include "frame-core/FrameCoreExport.h"

#include "base-ui/TLBaseWidget.h"

#include <QtCore/QString>

class QLabel;

/// A page of the settings dialog, or a part of one that the dialog's search reaches too. GUI thread. The
/// order of the virtual operations, which follow those of `QWidget`, is part of the contract.
class TL_FRAME_CORE_EXPORT SettingItemBaseWidget : public TLBaseWidget
{
    Q_OBJECT

public:
    explicit SettingItemBaseWidget(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~SettingItemBaseWidget() override;

    /// The word that the user looks for, so that the page can show where it has it; empty when there is none
    /// any more. Called when the page is shown in a search and whenever the word changes. Does nothing by
    /// default.
    virtual void SetKeyword(const QString& keyword);
    /// Called before the dialog lets go of the page. A page that has edits not written yet writes them now
    /// and reports by a signal; one that writes with every edit has nothing to do, which is the default.
    virtual void SaveData();

Q_SIGNALS:
    /// Emitted by the page when what the user changed has been stored.
    void SigSaveSucceed();
    /// Emitted by the page when it could not be stored. The page keeps showing the change.
    void SigSaveFailed();

protected:
    /// Highlights each occurrence of `keyword`, in any case, in the label's text, which counts as plain
    /// text; an empty keyword takes the highlight away. Without a label nothing happens. A text that the
    /// label is given later has no highlight; call this again for it.
    void SetLabelHighlighted(QLabel* label, const QString& keyword);
};
