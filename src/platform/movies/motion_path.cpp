// The way that something moves along: path data made into short straight pieces.
#include "platform/movies/motion_path.h"

#include "platform/movies/svg_values.h"

#include <QPolygonF>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <numbers>

namespace platform {
namespace {

constexpr double Pi = std::numbers::pi;

// An elliptical arc from the current point, as quarter turns of Bézier curves.
void AddArc(QPainterPath &path, const std::array<double, 7> &numbers, const QPointF &to)
{
    const QPointF from = path.currentPosition();
    double rx = std::abs(numbers[0]);
    double ry = std::abs(numbers[1]);
    if (rx == 0 || ry == 0 || from == to) {
        path.lineTo(to);
        return;
    }
    // The middle between both ends is the origin, the ellipse's axes lie straight.
    const QTransform turn = QTransform().rotate(numbers[2]);
    const QPointF half = turn.transposed().map((from - to) / 2);
    const double large = half.x() * half.x() / (rx * rx) + half.y() * half.y() / (ry * ry);
    if (large > 1) {
        rx *= std::sqrt(large);
        ry *= std::sqrt(large);
    }
    const double far = 1 / std::min(large, 1.0) - 1;
    const double side = (numbers[3] != 0) == (numbers[4] != 0) ? -1 : 1;
    const double shift = side * std::sqrt(std::max(0.0, far));
    const QPointF centre{shift * rx * half.y() / ry, -shift * ry * half.x() / rx};
    const double start = std::atan2((half.y() - centre.y()) / ry, (half.x() - centre.x()) / rx);
    const double end = std::atan2((-half.y() - centre.y()) / ry, (-half.x() - centre.x()) / rx);
    double sweep = end - start;
    if (numbers[4] != 0 && sweep < 0)
        sweep += 2 * Pi;
    if (numbers[4] == 0 && sweep > 0)
        sweep -= 2 * Pi;

    const QPointF middle = (from + to) / 2;
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (Pi / 2))));
    const double step = sweep / pieces;
    const double handle = 4.0 / 3 * std::tan(step / 4);
    const auto place = [&](double x, double y) {
        return middle + turn.map(centre + QPointF(rx * x, ry * y));
    };
    for (int piece = 0; piece < pieces; ++piece) {
        const double a = start + piece * step;
        const double b = a + step;
        path.cubicTo(place(std::cos(a) - handle * std::sin(a), std::sin(a) + handle * std::cos(a)),
                     place(std::cos(b) + handle * std::sin(b), std::sin(b) - handle * std::cos(b)),
                     piece == pieces - 1 ? to : place(std::cos(b), std::sin(b)));
    }
}

class PathReader {
public:
    explicit PathReader(const QByteArray &data) : m_data(data) {}

    QPainterPath Run();

private:
    bool Numbers(char command, std::array<double, 7> &numbers);
    void Segment(char command, const std::array<double, 7> &numbers);

    const QByteArray &m_data;
    int m_position = 0;
    QPainterPath m_path;
    QPointF m_handle; // the last control point, for the smooth commands
    char m_before = 0;
    bool m_relative = false;
};

QPainterPath PathReader::Run()
{
    char command = 0;
    const int size = static_cast<int>(m_data.size());
    while (m_position < size) {
        const char letter = m_data[m_position];
        if (std::isspace(static_cast<unsigned char>(letter)) != 0 || letter == ',') {
            ++m_position;
            continue;
        }
        if (std::isalpha(static_cast<unsigned char>(letter)) != 0) {
            command = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
            m_relative = letter != command;
            ++m_position;
        }
        std::array<double, 7> numbers{};
        const bool first = m_path.elementCount() == 0;
        if ((first && command != 'M') || !Numbers(command, numbers))
            break;
        Segment(command, numbers);
        m_before = command;
        if (command == 'M')
            command = 'L'; // further pairs are lines
        else if (command == 'Z')
            command = 0;
    }
    return m_path;
}

bool PathReader::Numbers(char command, std::array<double, 7> &numbers)
{
    size_t count = 0;
    switch (command) {
    case 'Z':
        return true;
    case 'H':
    case 'V':
        count = 1;
        break;
    case 'M':
    case 'L':
    case 'T':
        count = 2;
        break;
    case 'S':
    case 'Q':
        count = 4;
        break;
    case 'C':
        count = 6;
        break;
    case 'A':
        count = 7;
        break;
    default:
        return false;
    }
    for (size_t index = 0; index < count; ++index) {
        if (command == 'A' && (index == 3 || index == 4)) {
            // The two flags may stand without a gap: "a5 5 0 1010 0".
            while (m_position < m_data.size() &&
                   (m_data[m_position] == ',' ||
                    std::isspace(static_cast<unsigned char>(m_data[m_position])) != 0))
                ++m_position;
            if (m_position >= m_data.size() ||
                (m_data[m_position] != '0' && m_data[m_position] != '1'))
                return false;
            numbers[index] = m_data[m_position++] == '1' ? 1 : 0;
            continue;
        }
        const auto number = ScanNumber(m_data, m_position);
        if (!number)
            return false;
        numbers[index] = *number;
    }
    return true;
}

void PathReader::Segment(char command, const std::array<double, 7> &numbers)
{
    const QPointF here = m_path.currentPosition();
    const QPointF origin = m_relative ? here : QPointF();
    const auto point = [&](size_t index) {
        return origin + QPointF(numbers[index], numbers[index + 1]);
    };
    const bool afterCubic = m_before == 'C' || m_before == 'S';
    const bool afterQuadratic = m_before == 'Q' || m_before == 'T';
    switch (command) {
    case 'M':
        m_path.moveTo(point(0));
        break;
    case 'L':
        m_path.lineTo(point(0));
        break;
    case 'H':
        m_path.lineTo(origin.x() + numbers[0], here.y());
        break;
    case 'V':
        m_path.lineTo(here.x(), origin.y() + numbers[0]);
        break;
    case 'C':
        m_handle = point(2);
        m_path.cubicTo(point(0), m_handle, point(4));
        break;
    case 'S': {
        const QPointF mirrored = afterCubic ? 2 * here - m_handle : here;
        m_handle = point(0);
        m_path.cubicTo(mirrored, m_handle, point(2));
        break;
    }
    case 'Q':
        m_handle = point(0);
        m_path.quadTo(m_handle, point(2));
        break;
    case 'T':
        m_handle = afterQuadratic ? 2 * here - m_handle : here;
        m_path.quadTo(m_handle, point(0));
        break;
    case 'A':
        AddArc(m_path, numbers, point(5));
        break;
    default:
        m_path.closeSubpath();
    }
}

} // namespace

QPainterPath PathFromData(const QByteArray &data)
{
    return PathReader(data).Run();
}

MotionPath::MotionPath(const QPainterPath &path)
{
    for (const QPolygonF &polygon : path.toSubpathPolygons())
        m_points.insert(m_points.end(), polygon.begin(), polygon.end());
    Measure();
}

MotionPath::MotionPath(const std::vector<QPointF> &points) : m_points(points)
{
    Measure();
}

void MotionPath::Measure()
{
    double length = 0;
    for (size_t index = 0; index < m_points.size(); ++index) {
        if (index > 0) {
            const QPointF step = m_points[index] - m_points[index - 1];
            length += std::hypot(step.x(), step.y());
        }
        m_shares.push_back(length);
    }
    for (double &share : m_shares)
        share = length > 0 ? share / length : 0;
}

MotionPath::Place MotionPath::At(double share) const
{
    if (m_points.size() < 2 || m_shares.back() == 0)
        return {m_points.empty() ? QPointF() : m_points.front(), 0};
    const auto behind = std::upper_bound(m_shares.begin() + 1, m_shares.end() - 1, share);
    size_t end = static_cast<size_t>(behind - m_shares.begin());
    while (end > 1 && m_shares[end] == m_shares[end - 1])
        --end; // a piece without length has no direction
    const double width = m_shares[end] - m_shares[end - 1];
    const QPointF step = m_points[end] - m_points[end - 1];
    const double part = width > 0 ? std::clamp((share - m_shares[end - 1]) / width, 0.0, 1.0) : 0;
    return {m_points[end - 1] + part * step, std::atan2(step.y(), step.x()) * 180 / Pi};
}

} // namespace platform
