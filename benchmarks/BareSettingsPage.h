#pragma once

class QWidget;

/// Plain Qt widgets in the number and the layout of the settings page with the home page's row and as many
/// rows of each kind as said. Without parent; they do nothing.
QWidget* MakeBareSettingsPage(int systemRows, int customRows, int appRows);
