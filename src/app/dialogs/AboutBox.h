#pragma once

class QWidget;

/// Shows what program this is, and of what date.
void ShowAboutBox(QWidget *parent);
