#pragma once

class QWidget;

/// Plain Qt widgets in the number and layout of the settings page, with the home page's row and the given
/// number of rows of each kind. They have no parent and do nothing.
QWidget* MakeBareSettingsPage(int systemRows, int customRows, int appRows);
