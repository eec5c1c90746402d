// The way that something moves along: path data made into short straight pieces.
#pragma once

#include <QByteArray>
#include <QPainterPath>
#include <QPointF>

#include <vector>

namespace platform {

// The path of a "d" attribute; what stands behind the first fault is left out.
QPainterPath PathFromData(const QByteArray &data);

class MotionPath {
public:
    MotionPath() = default;
    explicit MotionPath(const QPainterPath &path);
    explicit MotionPath(const std::vector<QPointF> &points);

    bool IsEmpty() const { return m_points.empty(); }
    // Where the way's part `share`, 0 to 1, ends, and its direction there in degrees.
    struct Place {
        QPointF Point;
        double Degrees = 0;
    };
    Place At(double share) const;
    // Shares at which the given points of the way (its corners) lie.
    const std::vector<double> &Shares() const { return m_shares; }

private:
    void Measure();

    std::vector<QPointF> m_points;
    std::vector<double> m_shares; // ascending from 0 to 1, one for each point
};

} // namespace platform
