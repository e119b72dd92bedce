#include "grid.h"

#include <tablio/members.h>

#include <algorithm>
#include <map>
#include <utility>

namespace tablio::web {

namespace {

std::map<int, std::shared_ptr<Grid>> grids;

struct HandlerFailed {};

} // namespace

std::shared_ptr<Grid> gridAt(int number) {
    const auto found = grids.find(number);
    if (found == grids.end())
        throw Error("This grid is destroyed.");
    return found->second;
}

Failure currentFailure() {
    try {
        throw;
    } catch (const HandlerFailed &) {
        return {-1, -1, {}};
    } catch (const Error &error) {
        return {static_cast<int>(error.kind()), error.argument(), error.what()};
    } catch (const std::exception &error) {
        return {0, -1, error.what()};
    }
}

Tablio &Grid::table() const {
    if (table_ == nullptr)
        throw Error("This grid is destroyed.");
    return *table_;
}

void Grid::start() {
    table_ = std::make_unique<Tablio>();
    table_->startThemed();
    table_->setFace(this);
    table_->setHost(relay_.get());
}

void Grid::event(MemberNumber number, std::span<Value> arguments) {
    putValues(arguments);
    const Heard heard = tablio_event(number_, number, static_cast<int>(arguments.size()));
    if (heard == Heard::Threw)
        throw HandlerFailed();
    if (heard == Heard::Unchanged)
        return;
    Values changed = takeValues(static_cast<int>(arguments.size()));
    std::move(changed.begin(), changed.end(), arguments.begin());
}

Date Grid::today() const {
    const int date = tablio_today();
    return {date / 10000, date / 100 % 100, date % 100};
}

void Grid::showMessage(std::string_view title, std::string_view text, bool isQuestion) {
    const std::string both = std::string(title) + "\n" + std::string(text);
    tablio_message(number_, isQuestion, both.data(), both.size());
}

void Grid::noteChange() {
    if (!std::exchange(isNoted_, true))
        tablio_changed(number_);
}

void Grid::areaChanged(const Rect &area) {
    constexpr std::size_t most = 64;
    if (!isAll_)
        repaint_.areas.push_back(DevicePixels(look.scale).rect(area));
    isAll_ = isAll_ || repaint_.areas.size() > most;
    noteChange();
}

void Grid::scrolled() {
    arrange();
    const Screen &screen = table_->screen();
    const int topRow = std::exchange(topRow_, screen.rowRange().position);
    const int leftCol = std::exchange(leftCol_, screen.colRange().position);
    const ScrollMove move = screen.movedSince(topRow, leftCol, look.scale);
    const bool isMoved = move.distance != 0 && !isAll_;
    isAll_ = !isMoved;
    if (isMoved) {
        const int distance = DevicePixels(look.scale).edge(move.distance * twipsPerPixel);
        for (PixelRect &area : repaint_.areas)
            area = {area.left, area.top + std::min(0, distance), area.width,
                    area.height + std::abs(distance)};
        repaint_.move = {move.top, repaint_.move.distance + move.distance};
    }
    noteChange();
}

Grid::Repaint Grid::takeRepaint(const PixelRect &all) {
    Repaint repaint = std::exchange(repaint_, {});
    isNoted_ = false;
    const DevicePixels pixels(look.scale);
    const int top = pixels.edge(repaint.move.top * twipsPerPixel);
    const int distance = pixels.edge(repaint.move.distance * twipsPerPixel);
    if (std::exchange(isAll_, false) || std::abs(distance) >= all.height - top)
        return {{}, {all}};
    if (distance != 0)
        repaint.areas.push_back(
            {0, distance > 0 ? top : all.height + distance, all.width, std::abs(distance)});
    repaint.move = {top, distance};
    return repaint;
}

void Grid::repaintAll() {
    isAll_ = true;
    noteChange();
}

void Grid::setRoom(Twips width, Twips height, Twips bar) {
    room_ = {0, 0, width, height};
    bar_ = bar;
    arrange();
}

Arrangement Grid::arranged() const {
    return table().screen().arranged(room_.width, room_.height, bar_, bar_);
}

/// Telling the control its size makes it report its range, which comes back to here.
void Grid::arrange() {
    if (std::exchange(isArranging_, true))
        return;
    const Arrangement now = arranged();
    table_->input().resized(now.width, now.height);
    isArranging_ = false;
}

std::size_t Grid::numberOf(const Font &wanted) {
    const auto found = std::find(fonts_.begin(), fonts_.end(), wanted);
    if (found != fonts_.end())
        return static_cast<std::size_t>(found - fonts_.begin());
    fonts_.push_back(wanted);
    return fonts_.size() - 1;
}

[[clang::export_name("create")]] int create() {
    static int last = 0;
    grids.emplace(++last, std::make_shared<Grid>(last));
    return with(last, [](Grid &grid) {
        grid.start();
        return last;
    });
}

/// Also in a handler of the grid, whose calls go on to their end.
[[clang::export_name("destroy")]] void destroy(int number) {
    const auto found = grids.find(number);
    if (found == grids.end())
        return;
    const std::shared_ptr<Grid> grid = found->second;
    grids.erase(found);
    grid->destroy();
}

} // namespace tablio::web
