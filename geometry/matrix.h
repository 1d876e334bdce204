// Points, rectangles and affine maps.
#pragma once

namespace ovaline {

struct PointF {
    float X = 0;
    float Y = 0;

    bool operator==(const PointF&) const = default;
};

struct RectF {
    float X = 0;
    float Y = 0;
    float Width = 0;
    float Height = 0;

    bool operator==(const RectF&) const = default;
};

/// Affine map: (x, y) goes to (x·m11 + y·m21 + dx, x·m12 + y·m22 + dy).
struct Matrix {
    float m11 = 1;
    float m12 = 0;
    float m21 = 0;
    float m22 = 1;
    float dx = 0;
    float dy = 0;

    bool operator==(const Matrix&) const = default;

    PointF map(PointF p) const { return {p.X * m11 + p.Y * m21 + dx, p.X * m12 + p.Y * m22 + dy}; }
};

void GdipSetMatrixElements(Matrix& matrix, float m11, float m12, float m21, float m22, float dx, float dy);

// Every composition is prepended: the new operation acts on a point before what the matrix already holds.

void GdipTranslateMatrix(Matrix& matrix, float dx, float dy);
/// Scales about the origin.
void GdipScaleMatrix(Matrix& matrix, float sx, float sy);
/// Rotates about the origin by `angle` degrees, positive from +x towards +y.
void GdipRotateMatrix(Matrix& matrix, float angle);

/// Turns a point by `angle` degrees counter-clockwise on the screen about the centre of `box`, whose corner is the
/// origin.
Matrix rotationInBox(const RectF& box, float angle);

}  // namespace ovaline
