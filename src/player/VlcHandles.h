#pragma once

#include <memory>

#include <vlc/vlc.h>

/// @file
/// Scoped owners of libVLC handles. Only the player's own files include this header.

struct MediaRelease
{
    void operator()(libvlc_media_t *media) const { libvlc_media_release(media); }
};
using MediaPtr = std::unique_ptr<libvlc_media_t, MediaRelease>;

struct DescriptionRelease
{
    void operator()(libvlc_track_description_t *list) const
    {
        libvlc_track_description_list_release(list);
    }
};
using DescriptionList = std::unique_ptr<libvlc_track_description_t, DescriptionRelease>;
