// The kinds of movie that are known by their content.
#pragma once

#include "platform/movies/movie_reader.h"

namespace platform {

// Nothing for a content that is not known, is damaged, or is larger than a movie may be.
std::unique_ptr<MovieReader> ReadMovie(const QByteArray &content);
// Animated or still WebP and GIF.
std::unique_ptr<MovieReader> ReadRasterMovie(const QByteArray &content);

// Largest file that is looked at, in bytes.
constexpr qint64 LargestMovie = qint64{32} * 1024 * 1024;

} // namespace platform
