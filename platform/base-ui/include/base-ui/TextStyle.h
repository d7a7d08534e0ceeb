#pragma once

/// The text of a `PackagedMsgBox`.
enum class TextStyle
{
    Default, ///< as the dialog's other texts
    Strong,  ///< bold
};
