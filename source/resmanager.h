// SPDX-License-Identifier: MIT
#pragma once

#include "globaldefine.h"

#include <QImage>

#include <array>
#include <memory>

/// Cache of the compiled-in images: each is decoded at its first use and kept for the rest of the process. For the GUI
/// thread only.
class ResManager {
public:
    /// The one instance; made at the first call, and anew at the first call after deleteInstance().
    static ResManager *getInstance();
    /// Frees the instance with all its images, if there is one. Pointers from loadImage() are invalid from then on.
    static void deleteInstance();

    ~ResManager();

    /// The image of id @p index (a row of k_imgName), owned by the cache. Null for an index outside 0 to 29; a null
    /// image if there is no such file, which draws nothing and measures 0 by 0.
    QImage *loadImage(int index);

    /// The same drawing with twice as many pixels each way; null and null images as for loadImage().
    const QImage *loadFineImage(int index);

private:
    ResManager() = default;
    Q_DISABLE_COPY(ResManager)

    using Images = std::array<std::unique_ptr<QImage>, K_IMAGE_COUNT>;
    static QImage *load(Images &images, QLatin1String folder, int index);

    Images m_imgList;
    Images m_fineImages;
};
