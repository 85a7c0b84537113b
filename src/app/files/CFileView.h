#pragma once

#include <QWidget>

/// The pane of a project's files: a list with one row per file resource of a folder.
class CFileView : public QWidget
{
};
