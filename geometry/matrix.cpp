#include "geometry/matrix.h"

#include <cmath>
#include <numbers>

namespace ovaline {

namespace {

// `first` acts on a point before `second`.
Matrix composed(const Matrix& first, const Matrix& second) {
    return {first.m11 * second.m11 + first.m12 * second.m21,
            first.m11 * second.m12 + first.m12 * second.m22,
            first.m21 * second.m11 + first.m22 * second.m21,
            first.m21 * second.m12 + first.m22 * second.m22,
            first.dx * second.m11 + first.dy * second.m21 + second.dx,
            first.dx * second.m12 + first.dy * second.m22 + second.dy};
}

}  // namespace

void GdipSetMatrixElements(Matrix& matrix, float m11, float m12, float m21, float m22, float dx, float dy) {
    matrix = {m11, m12, m21, m22, dx, dy};
}

void GdipTranslateMatrix(Matrix& matrix, float dx, float dy) {
    matrix = composed({1, 0, 0, 1, dx, dy}, matrix);
}

void GdipScaleMatrix(Matrix& matrix, float sx, float sy) {
    matrix = composed({sx, 0, 0, sy, 0, 0}, matrix);
}

void GdipRotateMatrix(Matrix& matrix, float angle) {
    const double radians = static_cast<double>(angle) * std::numbers::pi / 180.0;
    const float sine = static_cast<float>(std::sin(radians));
    const float cosine = static_cast<float>(std::cos(radians));
    matrix = composed({cosine, sine, -sine, cosine, 0, 0}, matrix);
}

Matrix rotationInBox(const RectF& box, float angle) {
    Matrix matrix;
    GdipTranslateMatrix(matrix, box.Width / 2, box.Height / 2);
    GdipRotateMatrix(matrix, -angle);
    GdipTranslateMatrix(matrix, -(box.Width / 2), -(box.Height / 2));
    return matrix;
}

}  // namespace ovaline
