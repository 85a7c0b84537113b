#include "PicturePane.h"

struct PicturePane::Parts
{
};

PicturePane::PicturePane(Environment &, PictureLoader &, QWidget *parent) : QWidget(parent) {}
PicturePane::~PicturePane() = default;
void PicturePane::Show(const PreviewedFile &) {}
void PicturePane::Clear() {}
void PicturePane::ShowThumbnailsState(bool) {}
