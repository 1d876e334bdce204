// Appending to paths in bulk, for the operations that build paths themselves.
#pragma once

#include "geometry/graphics_path.h"

namespace ovaline {

/// Appends raw points to a path; the caller keeps the path well-formed.
class PathWriter {
public:
    explicit PathWriter(GraphicsPath& path) : path_(path) {}

    void reserve(std::size_t extraPoints);
    /// Gives back memory where most of it is unused: a path that was large once need not stay so.
    void releaseSpare();
    void add(PointF point, std::uint8_t type) {
        path_.points_.push_back(point);
        path_.types_.push_back(type);
    }
    /// Drops the points from index `size` on, which begin a figure.
    void truncate(std::size_t size) {
        path_.points_.resize(size);
        path_.types_.resize(size);
        path_.figureOpen_ = false;
    }
    /// Appends the figures of another path as new ones.
    void append(const GraphicsPath& other) {
        reserve(other.size());
        path_.points_.insert(path_.points_.end(), other.points_.begin(), other.points_.end());
        path_.types_.insert(path_.types_.end(), other.types_.begin(), other.types_.end());
        path_.figureOpen_ = !(path_.types_.back() & PathPointTypeCloseSubpath);
    }
    /// Maps the points from index `first` on.
    void transformFrom(std::size_t first, const Matrix& matrix) {
        for (std::size_t i = first; i < path_.points_.size(); ++i) path_.points_[i] = matrix.map(path_.points_[i]);
    }
    bool figureOpen() const { return path_.figureOpen_; }
    void setFigureOpen(bool open) { path_.figureOpen_ = open; }
    /// Records a failing status on the path and gives it back.
    Status fail(Status status) {
        path_.status_ = status;
        return status;
    }
    /// Makes (x, y) the point that the next segment starts from, by the rule of `GdipAddPathLine`.
    void startSegment(PointF point);

private:
    GraphicsPath& path_;
};

/// Appends the figures of `addition`, mapped by `matrix`, as new figures of `path`.
void appendTransformed(GraphicsPath& path, const GraphicsPath& addition, const Matrix& matrix);

}  // namespace ovaline
