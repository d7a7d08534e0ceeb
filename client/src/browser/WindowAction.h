#pragma once

/// What the user can do in the window by a key or the menu.
enum class WindowAction
{
    NewTab,
    CloseTab,
    ReopenTab,
    Find,
    ZoomIn,
    ZoomOut,
    ActualSize,
    Back,
    Forward,
    Reload,
    Escape,
    TypeAddress,
    NextTab,
    PreviousTab,
    MoveTabBack,
    MoveTabForward,
    OpenMenu,
    LogOut,
    Quit
};
