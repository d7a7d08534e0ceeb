#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

class QFrame;
class QGraphicsOpacityEffect;
class QLabel;
class QPropertyAnimation;
class QTimer;
class QWidget;
class TLPushButton;

/// Says what happens to the changes that the user makes on a page: nothing for a quick save, "Saving…" for a
/// slow one, "Saved" that fades, and a notice that stays while something is not saved. GUI thread.
class SaveStatus final : public QObject
{
    Q_OBJECT

public:
    explicit SaveStatus(QObject* parent = nullptr);
    ~SaveStatus() override;

    /// The line for good news; its layout owns it. The same each time.
    QLabel* GetLine() const noexcept { return m_line; }
    /// The notice for bad news; its layout owns it. The same each time.
    QWidget* GetNotice() const noexcept;

    /// A change is on its way, or waits for its turn.
    void SetBusy(bool busy);
    /// All changes are saved.
    void SetSaved();
    /// The last change is not saved. `code` and `description` are those of the call's response.
    void SetFailed(const QString& code, const QString& description);
    /// Changes that were not saved, or not made, are gone with the page as it was.
    void SetLost();
    /// Whether the page only shows the last known configuration. Gives way to what is said of changes.
    void SetStale(bool stale);
    /// Says nothing more of the changes.
    void Reset();

    /// Whether a change on the page is not saved and none is on its way.
    bool IsUnsaved() const noexcept { return m_kind == Kind::Failed; }

Q_SIGNALS:
    /// The user wants the page as it is stored, without a change that could not be saved.
    void SigLoadAgain();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Kind
    {
        Quiet,
        Saved,
        Failed,
        Lost
    };

    void Update();
    void Fade();
    void AdjustForScale();

    Kind m_kind = Kind::Quiet;
    QString m_code;
    QString m_description;
    bool m_slow = false;
    bool m_stale = false;
    QLabel* m_line;
    QGraphicsOpacityEffect* m_opacity;
    QPropertyAnimation* m_fade;
    QFrame* m_notice;
    QLabel* m_text;
    TLPushButton* m_button;
    QTimer* m_patience;
    QTimer* m_stay;
};
