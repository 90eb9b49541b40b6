// SPDX-License-Identifier: Apache-2.0
#include "ReferenceProjection.h"

#include <Imath/ImathMatrix.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace ovtest::reference {

namespace {

Imath::Matrix44<double> toImath(const Matrix& matrix) {
    Imath::Matrix44<double> result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            result[row][column] = matrix[std::size_t(row)][std::size_t(column)];
        }
    }
    return result;
}

Matrix inverse(const Matrix& matrix) {
    const Imath::Matrix44<double> inverted = toImath(matrix).inverse(false);
    Matrix result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            result[std::size_t(row)][std::size_t(column)] = inverted[row][column];
        }
    }
    return result;
}

Matrix transposed(const Matrix& matrix) {
    Matrix result;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            result[column][row] = matrix[row][column];
        }
    }
    return result;
}

Matrix scale(double x, double y, double z) {
    return {{{x, 0, 0, 0}, {0, y, 0, 0}, {0, 0, z, 0}, {0, 0, 0, 1}}};
}

Matrix translation(double x, double y, double z) {
    return {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {x, y, z, 1}}};
}

double dot(const Point& a, const Point& b) {
    double sum = a[0] * b[0];
    sum += a[1] * b[1];
    sum += a[2] * b[2];
    return sum;
}

Point normalized(const Point& point) {
    const Imath::Vec3<double> unit = Imath::Vec3<double>(point[0], point[1], point[2]).normalized();
    return {unit.x, unit.y, unit.z};
}

/// The direction by the upper left 3 x 3, and of length 1.
Point turned(const Point& direction, const Matrix& by) {
    Point result;
    for (std::size_t column = 0; column < 3; ++column) {
        double sum = direction[0] * by[0][column];
        sum += direction[1] * by[1][column];
        sum += direction[2] * by[2][column];
        result[column] = sum;
    }
    return normalized(result);
}

struct Basis {
    Point eye;
    Point forward;
    Point up;
    Point right;
};

Basis basisOf(const Camera& camera) {
    const Matrix turn = transposed(inverse(camera.xform));
    return {{camera.xform[3][0], camera.xform[3][1], camera.xform[3][2]},
            turned({0, 0, -1}, turn),
            turned({0, 1, 0}, turn),
            turned({1, 0, 0}, turn)};
}

/// A point of the world as the camera sees it.
struct Seen {
    double depth;
    double x;
    double y;
    double ax;
    double ay;
};

Seen seen(const Point& world, const Basis& basis) {
    Point d;
    for (std::size_t i = 0; i < 3; ++i) {
        d[i] = world[i] - basis.eye[i];
    }
    const double depth = dot(basis.forward, d);
    for (std::size_t i = 0; i < 3; ++i) {
        const double along = basis.forward[i] * depth;
        d[i] = d[i] - along;
    }
    const double x = dot(basis.right, d);
    const double y = dot(basis.up, d);
    return {depth, x, y, std::atan2(x, depth), std::atan2(y, depth)};
}

double halfViewTangent(const Camera& camera) {
    const double degrees = double(camera.fov) / 180.0;
    const double radians = degrees * 3.141592653589793;
    return std::tan(radians * 0.5);
}

Matrix orthographicProjection(const Camera& lens) {
    const float width = lens.right - lens.left;
    const float height = lens.top - lens.bottom;
    const float depth = lens.far - lens.near;
    const float acrossSum = lens.right + lens.left;
    const float upSum = lens.top + lens.bottom;
    const float depthSum = lens.far + lens.near;
    Matrix m{};
    m[0][0] = double(2.0F / width);
    m[1][1] = double(2.0F / height);
    m[2][2] = double(-2.0F / depth);
    m[3][0] = double(acrossSum / width);
    m[3][1] = double(upSum / height);
    m[3][2] = double(-depthSum / depth);
    m[3][3] = 1;
    return m;
}

Matrix perspectiveProjection(const Camera& lens, float aspect) {
    double angle = double(lens.fov) * 0.5;
    angle *= 3.14159265;
    angle /= 180.0;
    const float t = std::tan(float(angle)) * lens.near;
    float s = (lens.right - lens.left) / (lens.top - lens.bottom);
    s /= aspect;
    s *= t;
    const float right = lens.right * t;
    const float left = lens.left * t;
    const float top = lens.top * s;
    const float bottom = lens.bottom * s;
    const float width = right - left;
    const float height = top - bottom;
    const float depth = lens.far - lens.near;
    const double twiceNear = 2.0 * double(lens.near);
    const double twiceBoth = 2.0 * double(lens.far) * double(lens.near);
    const float depthSum = lens.near + lens.far;
    Matrix m{};
    m[0][0] = double(float(twiceNear / double(width)));
    m[1][1] = double(float(twiceNear / double(height)));
    m[2][0] = double((right + left) / width);
    m[2][1] = double((top + bottom) / height);
    m[2][2] = double(-depthSum / depth);
    m[2][3] = -1;
    m[3][2] = double(float(-twiceBoth / double(depth)));
    return m;
}

/// How many whole pixels; the nearest number that there is, and 0 for none.
int pixels(double extent) {
    if (std::isnan(extent)) {
        return 0;
    }
    if (extent >= double(std::numeric_limits<int>::max())) {
        return std::numeric_limits<int>::max();
    }
    if (extent <= double(std::numeric_limits<int>::min())) {
        return std::numeric_limits<int>::min();
    }
    return int(extent);
}

int wrappedProduct(int a, int b) {
    const std::int64_t exact = std::int64_t(a) * std::int64_t(b);
    return std::int32_t(std::uint32_t(std::uint64_t(exact)));
}

struct Range {
    double min = 0;
    double max = 0;

    void add(double value, bool isFirst) {
        if (isFirst || value < min) {
            min = value;
        }
        if (isFirst || value > max) {
            max = value;
        }
    }
};

/// The part of the picture between both ends of the range, in pixels.
int extent(const Range& range, double begin, float size, int resolution) {
    const double from = (range.min - begin) / double(size);
    const double to = (range.max - begin) / double(size);
    const double share = to - from;
    return pixels(share * double(resolution));
}

}  // namespace

Matrix identity() {
    return scale(1, 1, 1);
}

Matrix product(const Matrix& a, const Matrix& b) {
    Matrix result;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            double sum = a[row][0] * b[0][column];
            sum += a[row][1] * b[1][column];
            sum += a[row][2] * b[2][column];
            sum += a[row][3] * b[3][column];
            result[row][column] = sum;
        }
    }
    return result;
}

Point moved(const Point& point, const Matrix& by) {
    std::array<double, 4> homogeneous;
    for (std::size_t column = 0; column < 4; ++column) {
        double sum = point[0] * by[0][column];
        sum += point[1] * by[1][column];
        sum += point[2] * by[2][column];
        sum += by[3][column];
        homogeneous[column] = sum;
    }
    return {homogeneous[0] / homogeneous[3],
            homogeneous[1] / homogeneous[3],
            homogeneous[2] / homogeneous[3]};
}

Matrix projection(const Camera& lens, float aspect) {
    return lens.orthographic ? orthographicProjection(lens) : perspectiveProjection(lens, aspect);
}

Matrix projectionOfCamera(const Camera& camera, float aspect) {
    Camera lens = camera;
    if (camera.orthographic) {
        const float half = 0.5F * camera.orthographicWidth;
        lens.left *= half;
        lens.right *= half;
        lens.top *= half;
        lens.bottom *= half;
    }
    return projection(lens, aspect);
}

Matrix localToScreen(const Matrix& local, const Camera& camera, int xres, int yres) {
    const float aspect = float(xres) / float(yres);
    Matrix result = product(local, inverse(camera.xform));
    result = product(result, projectionOfCamera(camera, aspect));
    result = product(result, scale(0.5, 0.5, 0.5));
    result = product(result, translation(0.5, 0.5, 0.5));
    return product(result, scale(xres, yres, 1));
}

Point pointToNDC(const Point& point, const Matrix& local, const Camera& camera) {
    const Seen where = seen(moved(point, local), basisOf(camera));
    double sx = where.x;
    double sy = where.y;
    double edge = double(camera.orthographicWidth) * 0.5;
    if (!camera.orthographic) {
        const double half = halfViewTangent(camera);
        sx = std::tan(where.ax) / half;
        sy = std::tan(where.ay) / half;
        edge = 1;
    }
    const double left = double(camera.left) * edge;
    const double right = double(camera.right) * edge;
    const double top = double(camera.top) * edge;
    const double bottom = double(camera.bottom) * edge;
    return {(sx - left) / (right - left),
            (sy - bottom) / (top - bottom),
            (where.depth - double(camera.near)) / double(camera.far - camera.near)};
}

int pixelArea(const Matrix& local,
              const Camera& camera,
              const std::array<double, 6>& bound,
              int xres,
              int yres) {
    const Basis basis = basisOf(camera);
    Range x;
    Range y;
    Range ax;
    Range ay;
    for (unsigned corner = 0; corner < 8; ++corner) {
        const Point place = {bound[corner / 4], bound[2 + corner / 2 % 2], bound[4 + corner % 2]};
        const Seen where = seen(moved(place, local), basis);
        x.add(where.x, corner == 0);
        y.add(where.y, corner == 0);
        ax.add(where.ax, corner == 0);
        ay.add(where.ay, corner == 0);
    }
    if (!camera.orthographic) {
        const double half = halfViewTangent(camera);
        x = {std::tan(ax.min) / half, std::tan(ax.max) / half};
        y = {std::tan(ay.min) / half, std::tan(ay.max) / half};
    }
    return wrappedProduct(extent(x, double(camera.left), camera.right - camera.left, xres),
                          extent(y, double(camera.bottom), camera.top - camera.bottom, yres));
}

std::vector<float> sampleTimes(const std::set<float>& samples, float open, float close) {
    const std::vector<float> times(samples.begin(), samples.end());
    std::vector<float> result;
    double previous = -9999.0;
    for (std::size_t i = 0; i < times.size(); ++i) {
        while (times[i] < open && i + 1 < times.size() && !(times[i + 1] > open)) {
            ++i;
        }
        if (times[i] > close && previous >= double(close)) {
            break;
        }
        result.push_back(times[i]);
        previous = double(times[i]);
    }
    return result;
}

}  // namespace ovtest::reference
