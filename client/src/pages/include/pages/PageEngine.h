#pragma once

/// What draws the pages of the tabs.
enum class PageEngine
{
    Web,  ///< Qt WebEngine
    Plain ///< the text of the page, see `PlainTabPage`
};
