// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <set>
#include <vector>

/// Everything that `Projection.h` computes, a second time: plain numbers in, plain numbers out, one
/// rounding a step. What a bit of the library's results is measured by.
namespace ovtest::reference {

/// By row and column, for row vectors.
using Matrix = std::array<std::array<double, 4>, 4>;
using Point = std::array<double, 3>;

/// A camera as a scene has it.
struct Camera {
    float fov = 45;
    float near = 0.5F;
    float far = 100;
    float left = -1;
    float right = 1;
    float top = 1;
    float bottom = -1;
    bool orthographic = false;
    float orthographicWidth = 4;
    Matrix xform = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
};

Matrix identity();
Matrix product(const Matrix& a, const Matrix& b);

/// The point by the matrix, divided by its fourth coordinate.
Point moved(const Point& point, const Matrix& by);

/// With the screen rectangle as it stands, whatever the camera.
Matrix projection(const Camera& lens, float aspect);

/// With the rectangle of an orthographic camera scaled.
Matrix projectionOfCamera(const Camera& camera, float aspect);

Matrix localToScreen(const Matrix& local, const Camera& camera, int xres, int yres);

Point pointToNDC(const Point& point, const Matrix& local, const Camera& camera);

/// `bound` is xmin, xmax, ymin, ymax, zmin, zmax.
int pixelArea(const Matrix& local,
              const Camera& camera,
              const std::array<double, 6>& bound,
              int xres,
              int yres);

std::vector<float> sampleTimes(const std::set<float>& samples, float open, float close);

}  // namespace ovtest::reference
