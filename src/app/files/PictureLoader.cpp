#include "PictureLoader.h"

struct PictureLoader::Parts
{
};

PictureLoader::PictureLoader(QObject *parent) : QObject(parent) {}
PictureLoader::~PictureLoader() = default;
QPixmap PictureLoader::Thumbnail(const QByteArray &, int, bool *)
{
    return {};
}
void PictureLoader::Load(const QByteArray &, QSize, std::function<void(const LoadedPicture &)>) {}
void PictureLoader::DropRequests() {}
void PictureLoader::Forget() {}
