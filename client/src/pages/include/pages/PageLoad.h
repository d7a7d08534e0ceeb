#pragma once

#include <QtCore/QUrl>
#include <QtCore/QVector>

/// How far the load of a web page has come, for a page whose engine works by itself: it says late what it
/// does with a load, may drop one without a word, and begins others because the page wants to.
///
/// Every event is a method. It says what follows, to be done in that order; nothing follows from an event
/// that does not belong to the stage (an end without a load, an answer about an earlier load): those are
/// ignored.
class PageLoad final
{
public:
    enum class Stage
    {
        Idle,
        Asked,   ///< the engine has the load, and has not started it; it may never do so
        Dropped, ///< as `Asked`, but the user stays: the engine drops the load
        Held, ///< asked for while the page does not know yet that the user stays; the engine does not have it
        Running,
        Ending, ///< the engine has ended the load as not ok; the document is being asked for the reason
        Over    ///< the page goes; nothing follows from anything
    };

    enum class Effect
    {
        GiveToEngine,   ///< load `GetAsked()`
        AskReason,      ///< ask the document whether it is an error page, and call `HandleReason`
        LookForContent, ///< ask the document, too, and call `HandleContent` when it is none
        TellStarted,    ///< each is followed by one `TellFinished...`
        TellFinishedOk, ///< the page asked for is there
        TellFinishedNotOk,
        TellFailed,     ///< the page could not be loaded
        TellContent,    ///< after `TellFailed`: there is something to see again
        TellAddress,    ///< `GetShown()`
        TellPageBefore, ///< its address, title and icon: it stays, and only another address was told
                        ///< meanwhile
        TellHistory,    ///< back and forward may have become possible
        TellRendererDied
    };
    using Effects = QVector<Effect>;

    /// The user or the client asks for an address, which is valid.
    [[nodiscard]] Effects Ask(const QUrl& url);
    /// The engine need not do what was asked for: the user has stopped it or wants something else. A load
    /// that the engine has started ends when the engine says so.
    [[nodiscard]] Effects Withdraw();
    /// The page goes. Questions to the document may still be answered after that.
    void End();

    /// The engine starts a load: the one that was asked for, or one that the page begins by itself.
    [[nodiscard]] Effects HandleStarted();
    /// From 0 to 100. Content may have arrived where the user still sees why the load before failed.
    [[nodiscard]] Effects HandleProgress(int percent);
    /// The engine has finished a load, maybe the one before what was asked for.
    [[nodiscard]] Effects HandleFinished(bool ok);
    /// The page shown has another address. A place within the same document is there at once: the engine then
    /// says neither start nor end.
    [[nodiscard]] Effects HandleAddress(const QUrl& url);
    /// The document answers; `number` is what `GetNumber` gave when it was asked.
    [[nodiscard]] Effects HandleReason(int number, bool isErrorPage);
    [[nodiscard]] Effects HandleContent(int number);
    /// The user was asked whether to leave the page, and stays. Until the page has taken note of that, the
    /// engine drops every load it is given with the one that was asked about.
    [[nodiscard]] Effects HandleStay();
    [[nodiscard]] Effects HandleStayNoted();
    [[nodiscard]] Effects HandleRendererDied();

    Stage GetStage() const noexcept { return m_stage; }
    bool IsLoading() const noexcept { return m_stage != Stage::Idle && m_stage != Stage::Over; }
    /// Changes with each load.
    int GetNumber() const noexcept { return m_number; }
    /// What was asked for and is not there yet; empty when nothing is.
    const QUrl& GetAsked() const noexcept { return m_asked; }
    const QUrl& GetShown() const noexcept { return m_shown; }

private:
    enum class Event;

    /// Whether the event belongs to the stage; takes the step, then.
    bool Step(Event event);
    /// A load ends: what the user saw change goes back where the page asked for did not come.
    void Finish(bool ok, Effects* effects);
    /// A load begins; another that goes on ends with it.
    void Begin(bool replaces, Effects* effects);

    Stage m_stage = Stage::Idle;
    int m_number = 0;
    QUrl m_asked;
    QUrl m_shown;
    // What follows outlasts a load.
    bool m_staying = false; // the user stays, and the page does not know it yet
    bool m_failed = false;  // the user sees why there is no page
};
