// SPDX-License-Identifier: MIT
#include "resmanager.h"

#include <QDebug>

namespace {

std::unique_ptr<ResManager> instance;

} // namespace

ResManager *ResManager::getInstance()
{
    if (!instance)
        instance.reset(new ResManager);
    return instance.get();
}

void ResManager::deleteInstance()
{
    instance.reset();
}

ResManager::~ResManager()
{
    qDebug("call destructor of resmanager");
    for (std::unique_ptr<QImage> &image : m_imgList)
        image.reset();
}

QImage *ResManager::loadImage(int index)
{
    return load(m_imgList, QLatin1String(":/button/res/"), index);
}

const QImage *ResManager::loadFineImage(int index)
{
    return load(m_fineImages, QLatin1String(":/fine/"), index);
}

QImage *ResManager::load(Images &images, QLatin1String folder, int index)
{
    if (static_cast<unsigned>(index) >= images.size())
        return nullptr;
    std::unique_ptr<QImage> &image = images[static_cast<std::size_t>(index)];
    if (!image) {
        // With the suffix: without one the image reader would try those of all formats in turn.
        image = std::make_unique<QImage>(folder + QLatin1String(k_imgName[index]) + QLatin1String(".png"));
    }
    return image.get();
}
