#include "demo/props.h"
#include "demo/scenes.h"
#include "demo/sky.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace lookfar::demo {
namespace {

constexpr double horizon = 52.0;
constexpr double far_end = 14.0;

constexpr std::array facade_colours{0xC97B63U, 0xE2C391U, 0xA9B4C2U,
                                    0xD8A48FU, 0x8FA38CU, 0xE8DCCBU};
constexpr std::array car_colours{0xB8242AU, 0x2B59C3U, 0xE9E9E4U, 0x2E2E34U, 0xF2B134U, 0x3C7A57U};

/// Where a point of the street shows: x to the right of the middle of the road and y above it,
/// in units at distance 1; the eye is above the road.
QPointF seen(const Stage& stage, double x, double y, double distance) {
    constexpr double eye_height = 30.0;
    return {stage.width() / 2.0 + x / distance, horizon + (eye_height - y) / distance};
}

QPolygonF upright_wall(const Stage& stage, double x, double bottom, double top, double near,
                       double far) {
    return QPolygonF({seen(stage, x, bottom, near), seen(stage, x, top, near),
                      seen(stage, x, top, far), seen(stage, x, bottom, far)});
}

QPolygonF floor(const Stage& stage, double left, double right, double near, double far) {
    return QPolygonF({seen(stage, left, 0.0, near), seen(stage, right, 0.0, near),
                      seen(stage, right, 0.0, far), seen(stage, left, 0.0, far)});
}

struct House {
    double x;
    double near;
    double far;
    double height;
    unsigned number;
};

void paint_house_windows(Stage& stage, const House& house) {
    constexpr int columns = 4;
    const int rows = static_cast<int>((house.height - 14.0) / 12.0);
    for (int window = 0; window < columns * rows; ++window) {
        const double along = (window % columns + 0.28) / columns;
        const int row = window / columns;
        const double bottom = 16.0 + row * 12.0;
        const double near = house.near + (house.far - house.near) * along;
        const double far = near + (house.far - house.near) * 0.12;
        const QPolygonF shape = upright_wall(stage, house.x, bottom, bottom + 7.0, near, far);
        if (is_window_lit(stage, 200 + house.number, static_cast<unsigned>(window))) {
            stage.painter().setBrush(QColor(0xFFD98A));
            stage.painter().drawPolygon(shape);
        } else {
            stage.fill(shape, QColor(0x47566A));
        }
    }
}

void paint_house(Stage& stage, const House& house) {
    const QColor wall(facade_colours[house.number % facade_colours.size()]);
    const QColor shaded = house.x < 0.0 ? wall : wall.darker(118);
    stage.fill(upright_wall(stage, house.x, 0.0, house.height, house.near, house.far), shaded);
    stage.fill(
        upright_wall(stage, house.x, house.height - 2.5, house.height, house.near, house.far),
        shaded.lighter(115));
    stage.fill(upright_wall(stage, house.x, 0.0, 10.0, house.near, house.far), QColor(0x54463F));
    const double lamp = stage.light().darkness;
    stage.painter().setBrush(mixed(lit(QColor(0x9FB3BF), stage.light()), QColor(0xFFE3A6), lamp));
    const double depth = house.far - house.near;
    stage.painter().drawPolygon(upright_wall(stage, house.x, 1.5, 8.5, house.near + depth * 0.1,
                                             house.near + depth * 0.85));
    paint_house_windows(stage, house);
}

void paint_houses(Stage& stage) {
    constexpr unsigned houses_a_side = 12;
    const double side_of_road = 50.0;
    for (unsigned step = houses_a_side; step-- > 0;) {
        const double near = 0.62 + step * 0.75;
        for (const double side : {-1.0, 1.0}) {
            const unsigned number = step * 2 + (side > 0.0 ? 1 : 0);
            paint_house(stage, {side * side_of_road, near, near + 0.75,
                                44.0 + 22.0 * scattered(31, number), number});
        }
    }
}

void paint_road(Stage& stage) {
    stage.fill(floor(stage, -50.0, 50.0, 0.55, far_end), QColor(0xB5AEA4));
    stage.fill(floor(stage, -34.0, 34.0, 0.55, far_end), QColor(0x55575C));
    for (int dash = 0; dash < 16; ++dash) {
        const double distance = far_end * std::pow(0.82, dash);
        stage.fill(floor(stage, -0.7, 0.7, distance * 0.9, distance), QColor(0xE8E4D8));
    }
}

void paint_lamp(Stage& stage, double side, double distance) {
    const QPointF foot = seen(stage, side * 38.0, 0.0, distance);
    const QPointF top = seen(stage, side * 38.0, 30.0, distance);
    const QPointF head = seen(stage, side * 32.0, 31.0, distance);
    stage.line(foot, top, 0.7 / distance, QColor(0x2C3036));
    stage.line(top, head, 0.6 / distance, QColor(0x2C3036));
    if (stage.light().darkness > 0.3) {
        stage.glow(head, 13.0 / distance, QColor(0xFFCF80), 0.95);
    }
}

void paint_car(Stage& stage, double lane, double distance, unsigned car) {
    const QPointF middle = seen(stage, lane, 0.0, distance);
    const double size = 1.0 / distance;
    const bool oncoming = lane < 0.0;
    const auto part = [&](double left, double bottom, double width, double height) {
        return QRectF(middle.x() + left * size, middle.y() - (bottom + height) * size, width * size,
                      height * size);
    };
    stage.fill(part(-6.6, 0.0, 2.6, 3.0), QColor(0x17171A));
    stage.fill(part(4.0, 0.0, 2.6, 3.0), QColor(0x17171A));
    const QColor body(car_colours[car % car_colours.size()]);
    stage.fill(part(-7.0, 1.8, 14.0, 5.2), body);
    stage.fill(part(-5.6, 6.8, 11.2, 4.2), body.darker(110));
    stage.fill(part(-4.8, 7.1, 9.6, 3.1), QColor(0x39485A));
    const QColor lamp(oncoming ? 0xFFF4D0U : 0xFF3524U);
    for (const double side : {-5.6, 5.6}) {
        const QPointF place(middle.x() + side * size, middle.y() - 4.6 * size);
        stage.painter().setBrush(lamp);
        stage.painter().drawEllipse(place, size, 0.7 * size);
        stage.glow(place, 9.0 * size, lamp, stage.light().darkness * 0.9);
    }
}

void paint_traffic(Stage& stage) {
    struct PlacedCar {
        double lane;
        double distance;
        unsigned number;
    };
    constexpr unsigned cars = 6;
    std::array<PlacedCar, cars> traffic{};
    for (unsigned car = 0; car < cars; ++car) {
        const bool oncoming = car % 2 == 0;
        const double way = progress(stage.moment(), 11.0 + car, car / 6.0 + 0.05);
        const double nearness = oncoming ? way : 1.0 - way;
        traffic[car] = {oncoming ? -15.0 : 15.0, 0.85 / (nearness + 0.085), car};
    }
    std::ranges::sort(traffic, std::ranges::greater(), &PlacedCar::distance);
    for (const PlacedCar& car : traffic) {
        paint_car(stage, car.lane, car.distance, car.number);
    }
}

void paint_pavements(Stage& stage) {
    for (int row = 0; row < 7; ++row) {
        const double distance = 7.0 * std::pow(0.72, row);
        const QPointF left = seen(stage, -43.0, 0.0, distance);
        paint_round_tree(stage, left, 24.0 / distance, QColor(0x5B8C4A));
        paint_lamp(stage, -1.0, distance * 0.86);
        paint_lamp(stage, 1.0, distance * 0.86);
        const double drift = 5.0 * progress(stage.moment(), 5.0, distance);
        paint_walker(
            stage, seen(stage, 41.0 + drift, 0.0, distance), 9.0 / distance,
            QColor(car_colours[static_cast<unsigned>(distance * 3.0) % car_colours.size()]));
    }
}

} // namespace

QImage draw_street(QSize size, const Moment& moment) {
    Stage stage(size, moment);
    paint_sky(stage, horizon);
    paint_skyline(stage, horizon + 1.5, 8.0, 33);
    stage.fill(QRectF(0.0, horizon + 1.0, stage.width(), 50.0), QColor(0x9A948B));
    paint_road(stage);
    paint_houses(stage);
    paint_traffic(stage);
    paint_pavements(stage);
    return stage.take_picture();
}

} // namespace lookfar::demo
