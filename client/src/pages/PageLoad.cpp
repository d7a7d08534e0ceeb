#include "pages/PageLoad.h"

#include <array>
#include <optional>
#include <utility>

enum class PageLoad::Event
{
    Asked,
    AskedWhileStaying,
    Withdrawn,
    Started,
    FinishedOk,
    FinishedNotOk,
    PlaceReached, // the one asked for, in the document shown
    ReasonKnown,
    Stayed,
    StayNoted,
    RendererDied,
    Ended,
    Count
};

namespace {

using Stage = PageLoad::Stage;

/// Where an event leads from each stage; from the last one it leads nowhere.
using Row = std::array<std::optional<Stage>, 6>;

constexpr std::nullopt_t No = std::nullopt; // the event does not belong to the stage
constexpr Stage Idle = Stage::Idle;
constexpr Stage Asked = Stage::Asked;
constexpr Stage Dropped = Stage::Dropped;
constexpr Stage Held = Stage::Held;
constexpr Stage Running = Stage::Running;
constexpr Stage Ending = Stage::Ending;
constexpr Stage Over = Stage::Over;

// Read in columns.
// clang-format off
constexpr Row Steps[] = {
    //   event               Idle     Asked    Dropped  Held     Running  Ending
    // Nobody stays in `Asked`; in `Dropped` and `Held` the page does not know yet that the user does.
    /* Asked             */ {Asked,   Asked,   No,      No,      Asked,   Asked},
    /* AskedWhileStaying */ {Held,    No,      Held,    Held,    Held,    Held},
    /* Withdrawn         */ {No,      Idle,    Idle,    Idle,    No,      No},
    // A load of the page's own may start before the one that was asked for; it takes its place.
    /* Started           */ {Running, Running, Running, Running, Running, Running},
    // An end before the start is that of the load before.
    /* FinishedOk        */ {No,      No,      No,      No,      Idle,    Idle},
    /* FinishedNotOk     */ {No,      No,      No,      No,      Ending,  No},
    /* PlaceReached      */ {No,      Idle,    Idle,    Idle,    No,      No},
    /* ReasonKnown       */ {No,      No,      No,      No,      No,      Idle},
    /* Stayed            */ {Idle,    Dropped, Dropped, Held,    Running, Ending},
    /* StayNoted         */ {Idle,    No,      Idle,    Asked,   Running, Ending},
    /* RendererDied      */ {Idle,    Idle,    Idle,    Idle,    Idle,    Idle},
    /* Ended             */ {Over,    Over,    Over,    Over,    Over,    Over},
};
// clang-format on

/// Whether the engine may never start the load, or does not have it yet.
bool IsBeforeStart(Stage stage)
{
    return stage == Stage::Asked || stage == Stage::Dropped || stage == Stage::Held;
}

/// Whether the one is a place in the document of the other.
bool IsPlaceIn(const QUrl& document, const QUrl& url)
{
    return url.hasFragment() && url.matches(document, QUrl::RemoveFragment);
}

} // namespace

PageLoad::Effects PageLoad::Ask(const QUrl& url)
{
    Effects effects;
    const bool replaces = IsLoading();
    if (!Step(m_staying ? Event::AskedWhileStaying : Event::Asked)) {
        return effects;
    }
    Begin(replaces, &effects);
    m_asked = url;
    if (m_stage == Stage::Asked) {
        effects << Effect::GiveToEngine;
    }
    return effects;
}

PageLoad::Effects PageLoad::Withdraw()
{
    Effects effects;
    if (Step(Event::Withdrawn)) {
        Finish(false, &effects);
    }
    return effects;
}

void PageLoad::End()
{
    Step(Event::Ended);
}

PageLoad::Effects PageLoad::HandleStarted()
{
    Effects effects;
    const bool wasTold = IsBeforeStart(m_stage);
    const bool replaces = IsLoading();
    if (Step(Event::Started) && !wasTold) {
        Begin(replaces, &effects);
    }
    return effects;
}

PageLoad::Effects PageLoad::HandleProgress(int percent)
{
    Effects effects;
    if (m_stage != Stage::Over && m_failed && percent < 100) {
        effects << Effect::LookForContent;
    }
    return effects;
}

PageLoad::Effects PageLoad::HandleFinished(bool ok)
{
    Effects effects;
    if (!Step(ok ? Event::FinishedOk : Event::FinishedNotOk)) {
        return effects;
    }
    if (ok) {
        m_failed = false;
        Finish(true, &effects);
    } else {
        effects << Effect::AskReason;
    }
    return effects;
}

PageLoad::Effects PageLoad::HandleAddress(const QUrl& url)
{
    Effects effects;
    if (m_stage == Stage::Over) {
        return effects;
    }
    const bool isPlaceAsked =
        IsPlaceIn(m_shown, url) && url.fragment(QUrl::FullyEncoded) == m_asked.fragment(QUrl::FullyEncoded);
    m_shown = url;
    const bool isThere = isPlaceAsked && Step(Event::PlaceReached);
    if (!IsBeforeStart(m_stage)) {
        m_asked.clear();
        effects << Effect::TellAddress;
    }
    if (isThere) {
        Finish(true, &effects);
    } else {
        effects << Effect::TellHistory;
    }
    return effects;
}

PageLoad::Effects PageLoad::HandleReason(int number, bool isErrorPage)
{
    Effects effects;
    if (number != m_number || !Step(Event::ReasonKnown)) {
        return effects;
    }
    if (isErrorPage) {
        m_failed = true;
        m_asked.clear(); // the page from before is gone
        effects << Effect::TellFailed;
    } else if (std::exchange(m_failed, false)) {
        effects << Effect::TellContent;
    }
    Finish(false, &effects);
    return effects;
}

PageLoad::Effects PageLoad::HandleContent(int number)
{
    Effects effects;
    // Until the page asked for is there, what can be seen is that of the one before.
    if (number == m_number && m_stage != Stage::Over && m_asked.isEmpty() && std::exchange(m_failed, false)) {
        effects << Effect::TellContent;
    }
    return effects;
}

PageLoad::Effects PageLoad::HandleStay()
{
    m_staying = Step(Event::Stayed);
    return {};
}

PageLoad::Effects PageLoad::HandleStayNoted()
{
    Effects effects;
    const Stage before = m_stage;
    if (!std::exchange(m_staying, false) || !Step(Event::StayNoted)) {
        return effects;
    }
    if (before == Stage::Dropped) {
        Finish(false, &effects);
    } else if (before == Stage::Held) {
        effects << Effect::GiveToEngine;
    }
    return effects;
}

PageLoad::Effects PageLoad::HandleRendererDied()
{
    Effects effects;
    const bool wasLoading = IsLoading();
    if (!Step(Event::RendererDied)) {
        return effects;
    }
    ++m_number;
    m_staying = false;
    m_failed = true;
    if (wasLoading) {
        Finish(false, &effects);
    }
    effects << Effect::TellRendererDied;
    return effects;
}

bool PageLoad::Step(Event event)
{
    static_assert(std::size(Steps) == std::size_t(Event::Count), "a row for each event");
    if (m_stage == Stage::Over) {
        return false;
    }
    const std::optional<Stage> next = Steps[std::size_t(event)][std::size_t(m_stage)];
    m_stage = next.value_or(m_stage);
    return next.has_value();
}

void PageLoad::Begin(bool replaces, Effects* effects)
{
    ++m_number;
    if (replaces) {
        *effects << Effect::TellFinishedNotOk;
    }
    *effects << Effect::TellStarted;
}

void PageLoad::Finish(bool ok, Effects* effects)
{
    if (m_asked.isValid() && m_shown.isValid()) {
        *effects << Effect::TellPageBefore;
    }
    m_asked.clear();
    *effects << Effect::TellHistory << (ok ? Effect::TellFinishedOk : Effect::TellFinishedNotOk);
}
