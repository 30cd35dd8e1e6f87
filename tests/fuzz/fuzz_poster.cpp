// A poster: the body of a reply, or a data URL. Only a picture is kept on disk, as it came, and the
// kept one gives the same picture.

#include "FuzzTarget.h"

#include "support/PrivateProfile.h"
#include "support/TestFiles.h"
#include "ui/PosterDecoder.h"
#include "ui/PosterImage.h"

using namespace Qt::StringLiterals;

namespace {

void checkPicture(const DecodedPoster &poster)
{
    if (poster.picture.isNull()) {
        return;
    }
    constexpr qint64 maxPixels = 16'000'000;
    const QSize size = poster.originalSize;
    require(qint64(size.width()) * size.height() <= maxPixels, "a picture has bounded pixels");
    require(poster.picture.width() <= posterSize.width() &&
                poster.picture.height() <= posterSize.height(),
            "a grid's picture fits the grid");
}

} // namespace

void fuzz(FuzzInput &input)
{
    const QString file = PrivateProfile::current().root() + "/poster.img"_L1;
    const bool inUrl = input.below(2) == 1;
    const QByteArray bytes = input.rest();
    if (inUrl) {
        checkPicture(decodePosterJob({QString::fromUtf8("data:" + bytes), file, {}, 1}));
        require(!QFile::exists(file), "a data URL's picture is not kept");
        return;
    }
    const DecodedPoster poster = decodePosterJob({u"http://h/a"_s, file, bytes, 1});
    checkPicture(poster);
    require(QFile::exists(file) == !poster.picture.isNull(),
            "a picture, and no other body, is kept");
    if (!poster.picture.isNull()) {
        require(readFile(file) == bytes, "a picture is kept as it came");
        const DecodedPoster kept = decodePosterJob({u"http://h/a"_s, file, {}, 1});
        require(kept.picture == poster.picture, "the kept picture is the same");
        QFile::remove(file);
    }
}
