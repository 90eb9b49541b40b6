// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/Projection.h>

#include <cmath>

namespace SYLVAR {
namespace {

using Matrix = Imath::Matrix44<double>;

Matrix zeroMatrix() {
    return Matrix(0.0);
}

/// The quotient of doubles, rounded to a float.
double floatQuotient(double dividend, float divisor) {
    return static_cast<float>(dividend / static_cast<double>(divisor));
}

/// In floats throughout. The offsets of row 3 are positive on purpose.
Matrix orthographicMatrix(float near, float far, float left, float right, float bottom, float top) {
    Matrix m = zeroMatrix();
    m[0][0] = 2.0F / (right - left);
    m[1][1] = 2.0F / (top - bottom);
    m[2][2] = -2.0F / (far - near);
    m[3][0] = (right + left) / (right - left);
    m[3][1] = (top + bottom) / (top - bottom);
    m[3][2] = -(far + near) / (far - near);
    m[3][3] = 1.0;
    return m;
}

/// The tangent of half the field of view, with a pi of eight decimals.
float halfViewTangent(float fov) {
    return std::tan(static_cast<float>(static_cast<double>(fov) * 0.5 * 3.14159265 / 180.0));
}

/// In floats, but for the three quotients of doubles.
Matrix perspectiveMatrix(float near,
                         float far,
                         float left,
                         float right,
                         float bottom,
                         float top,
                         float fov,
                         float aspect) {
    const float t = halfViewTangent(fov) * near;
    const float s = ((right - left) / (top - bottom)) / aspect * t;
    const float r = right * t;
    const float l = left * t;
    const float u = top * s;
    const float b = bottom * s;
    Matrix m = zeroMatrix();
    m[0][0] = floatQuotient(2.0 * near, r - l);
    m[1][1] = floatQuotient(2.0 * near, u - b);
    m[2][0] = (r + l) / (r - l);
    m[2][1] = (u + b) / (u - b);
    m[2][2] = -(near + far) / (far - near);
    m[2][3] = -1.0;
    m[3][2] = floatQuotient(-(2.0 * far * near), far - near);
    return m;
}

}  // namespace

Matrix GetProjectionMatrix(float near,
                           float far,
                           float left,
                           float right,
                           float bottom,
                           float top,
                           bool orthographic,
                           float fov,
                           float aspect) {
    return orthographic ? orthographicMatrix(near, far, left, right, bottom, top)
                        : perspectiveMatrix(near, far, left, right, bottom, top, fov, aspect);
}

Matrix GetProjectionMatrix(const CameraInfo& info, float aspect) {
    const float scale = info.orthographic ? 0.5F * info.orthographicWidth : 1.0F;
    return GetProjectionMatrix(info.near,
                               info.far,
                               info.left * scale,
                               info.right * scale,
                               info.bottom * scale,
                               info.top * scale,
                               info.orthographic,
                               info.fov,
                               aspect);
}

}  // namespace SYLVAR
