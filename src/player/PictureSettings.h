#pragma once

#include <QString>

/// How the picture is shown.
struct PictureSettings
{
    QString aspectRatio; ///< as "16:9"; empty: that of the stream
    QString crop;        ///< to this ratio, as "16:9"; empty: the whole picture
    float scale = 0;     ///< of the picture's own size; 0: as large as the window allows
    bool deinterlace = false;

    bool operator==(const PictureSettings &) const = default;
};
