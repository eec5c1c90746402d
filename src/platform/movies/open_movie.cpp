// Finds the file that a movie's name stands for, and the reader that knows its content.
#include "platform/movies/movie_reader.h"

#include "platform/base/errors.h"
#include "platform/files/files.h"
#include "platform/movies/movie_formats.h"
#include "platform/movies/svg_movie.h"

#include <QHash>
#include <QSet>

#include <filesystem>

namespace platform {
namespace {

constexpr qsizetype MostKeptFiles = 64;
const char *const Endings[] = {".svg", ".webp", ".gif"};

std::shared_ptr<SvgSource> ReadSvg(const QByteArray &content)
{
    auto document = ParseSvg(content);
    return document ? std::make_shared<SvgSource>(std::move(*document)) : nullptr;
}

// A file as it was when it was read: of the same length and changed at the same time it is the
// same file.
struct KeptFile {
    int64_t Length;
    int64_t Changed;
    std::shared_ptr<SvgSource> Source;
};

QHash<QString, KeptFile> &KeptFiles()
{
    static QHash<QString, KeptFile> files;
    return files;
}

// In the file system's own units, nanoseconds as a rule.
int64_t TimeOfChange(const QString &path)
{
    std::error_code error;
    const auto time = std::filesystem::last_write_time(path.toStdU16String(), error);
    return error ? 0 : static_cast<int64_t>(time.time_since_epoch().count());
}

std::unique_ptr<MovieReader> OpenFile(const QString &literal)
{
    const QString path = NativePath(literal);
    if (!FileExists(path))
        return nullptr;
    const int64_t length = FileLength(path);
    if (length > LargestMovie)
        return nullptr;
    const int64_t changed = TimeOfChange(path);
    auto &kept = KeptFiles();
    const auto known = kept.constFind(path);
    if (known != kept.constEnd() && known->Length == length && known->Changed == changed)
        return std::make_unique<SvgMovie>(known->Source);

    kept.remove(path);
    const QByteArray content = ReadFile(path);
    auto source = ReadSvg(content);
    if (source == nullptr)
        return ReadRasterMovie(content);
    // A figure is opened again and again. A reward is some 100 kB as it is read, and comes again
    // after a dozen others: that costs less time than it would cost memory.
    if (source->Animation.IsEmpty()) {
        if (kept.size() >= MostKeptFiles)
            kept.clear();
        kept.insert(path, {length, changed, source});
    }
    return std::make_unique<SvgMovie>(std::move(source));
}

// The path without the ending of its last part.
QString WithoutEnding(const QString &path)
{
    const qsizetype part =
        std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    return dot > part ? path.left(dot) : path;
}

} // namespace

std::unique_ptr<MovieReader> ReadMovie(const QByteArray &content)
{
    if (auto source = ReadSvg(content))
        return std::make_unique<SvgMovie>(std::move(source));
    return ReadRasterMovie(content);
}

std::unique_ptr<MovieReader> OpenMovie(const QString &path)
{
    QStringList candidates{path};
    for (const char *ending : Endings)
        candidates << WithoutEnding(path) + QLatin1String(ending);
    std::unique_ptr<MovieReader> reader;
    // A file that cannot be read is not there.
    for (const QString &candidate : candidates) {
        Skipping([&] { reader = OpenFile(candidate); });
        if (reader)
            break;
    }
    return reader;
}

int CountMovies(const QString &pattern)
{
    const QString base = WithoutEnding(pattern);
    QSet<QString> names;
    QStringList patterns{pattern};
    for (const char *ending : Endings)
        patterns << base + QLatin1String(ending);
    for (const QString &one : patterns)
        for (const QString &name : DirList(one, LookUp::FilesAndFolders))
            names.insert(WithoutEnding(name).toLower());
    return static_cast<int>(names.size());
}

} // namespace platform
