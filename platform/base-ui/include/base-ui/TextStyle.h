#pragma once

/// The style of a `PackagedMsgBox`'s text.
enum class TextStyle
{
    Default, ///< like the dialog's other texts
    Strong,  ///< bold
};
