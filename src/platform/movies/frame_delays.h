// How long each frame of an animated picture stands, read from the file's frame table so that no
// frame need be decoded for it.
#pragma once

#include <QByteArray>
#include <QSize>

#include <vector>

namespace platform {

bool IsGif(const QByteArray &content);
bool IsWebp(const QByteArray &content);

// Of the whole picture as a GIF tells it; empty for other kinds.
QSize CanvasSize(const QByteArray &content);

// Milliseconds of each frame; empty for a still picture without a table. A frame of 10 ms or less
// stands 100 ms, as it does everywhere else.
std::vector<int> GifDelays(const QByteArray &content);
std::vector<int> WebpDelays(const QByteArray &content);

} // namespace platform
