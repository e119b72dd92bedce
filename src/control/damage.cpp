#include <tablio/damage.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tablio {

void Damage::add(const Rect &area, double scale) {
    constexpr std::size_t most = 64;
    if (!isAll_)
        frame_.areas.push_back(DevicePixels(scale).rect(area));
    isAll_ = isAll_ || frame_.areas.size() > most;
}

void Damage::scroll(const Screen &screen, double scale) {
    const int topRow = std::exchange(topRow_, screen.rowRange().position);
    const int leftCol = std::exchange(leftCol_, screen.colRange().position);
    const ScrollMove move = screen.movedSince(topRow, leftCol, scale);
    isAll_ = isAll_ || move.distance == 0;
    if (isAll_)
        return;
    const DevicePixels pixels(scale);
    const int distance = pixels.edge(move.distance * twipsPerPixel);
    // What was noted before is where it has gone, and may have gone from where it was.
    for (PixelRect &area : frame_.areas)
        area = {area.left, area.top + std::min(0, distance), area.width,
                area.height + std::abs(distance)};
    frame_.move = {pixels.edge(move.top * twipsPerPixel), frame_.move.distance + distance};
}

Damage::Frame Damage::take(int width, int height) {
    Frame frame = std::exchange(frame_, {});
    const auto [top, distance] = frame.move;
    if (std::exchange(isAll_, false) || std::abs(distance) >= height - top)
        return {{}, {{0, 0, width, height}}};
    if (distance != 0)
        frame.areas.push_back(
            {0, distance > 0 ? top : height + distance, width, std::abs(distance)});
    return frame;
}

} // namespace tablio
