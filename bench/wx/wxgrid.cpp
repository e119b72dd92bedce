/// wxGrid with its string table, in a window on an X display. It formats numbers when it paints,
/// and stripes come from the row's number.

#include "program.h"

#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/grid.h>

namespace {

using namespace tablio::bench;

class Stripes : public wxGridCellAttrProvider {
public:
    Stripes() : stripe_(new wxGridCellAttr) { stripe_->SetBackgroundColour({0xE6, 0xEE, 0xF5}); }
    ~Stripes() override { stripe_->DecRef(); }

    wxGridCellAttr *GetAttr(int row, int col, wxGridCellAttr::wxAttrKind kind) const override {
        wxGridCellAttr *attr = wxGridCellAttrProvider::GetAttr(row, col, kind);
        if (attr != nullptr || row % 2 == 0)
            return attr;
        stripe_->IncRef();
        return stripe_;
    }

private:
    wxGridCellAttr *stripe_;
};

class WxGrid {
public:
    WxGrid(Size size, Kind kind)
        : kind_(kind), frame_(new wxFrame(nullptr, wxID_ANY, "bench")),
          grid_(new wxGrid(frame_, wxID_ANY)) {
        frame_->SetClientSize(windowWidth, windowHeight);
        grid_->CreateGrid(size.rows, size.cols);
        grid_->SetDefaultRowSize(rowPixels, true);
        grid_->SetDefaultColSize(colPixels, true);
        if (kind == Kind::Full)
            grid_->GetTable()->SetAttrProvider(new Stripes);
        else
            grid_->HideRowLabels();
    }
    ~WxGrid() {
        frame_->Destroy();
        // Windows are deleted when the program has nothing else to do.
        wxTheApp->ProcessIdle();
    }
    WxGrid(const WxGrid &) = delete;
    WxGrid &operator=(const WxGrid &) = delete;

    void show() {
        frame_->Show();
        for (int round = 0; round < 20; ++round)
            handleEvents();
    }
    void resize(Size size) {
        const int missing = size.rows - grid_->GetNumberRows();
        missing < 0 ? grid_->DeleteRows(0, -missing) : grid_->AppendRows(missing);
    }
    void bulk(bool on) { on ? grid_->BeginBatch() : grid_->EndBatch(); }
    void set(int row, int col, std::string_view text) {
        grid_->SetCellValue(row, col, wxString::FromAscii(text.data(), text.size()));
    }
    void formatColumn(int col) { grid_->SetColFormatFloat(col, -1, 2); }
    void setNumber(int row, int col, std::string_view text) { set(row, col, text); }
    /// It has no place for a host's own value on a cell.
    void tag(int /*row*/, int /*col*/) {}
    void paintStripes() {
        if (kind_ == Kind::Full)
            return;
        for (int row = 1; row < grid_->GetNumberRows(); row += 2) {
            for (int col = keyCol; col < grid_->GetNumberCols(); ++col)
                grid_->SetCellBackgroundColour(row, col, {0xE6, 0xEE, 0xF5});
        }
    }
    void insertRow(int row) {
        grid_->DeleteRows(grid_->GetNumberRows() - 1);
        grid_->InsertRows(row);
    }
    void removeRow(int row) {
        grid_->DeleteRows(row);
        grid_->AppendRows();
    }
    void appendRow() { grid_->AppendRows(); }
    int placeOf(int row, int col) {
        const wxRect cell = grid_->CellToRect(row, col);
        return cell.x + cell.y;
    }
    void clear() { grid_->ClearGrid(); }
    int duplicateOf(int row) {
        const wxString key = keyOf(row).Lower();
        for (int other = 0; other < grid_->GetNumberRows(); ++other) {
            if (other != row && keyOf(other).Lower() == key)
                return other;
        }
        return -1;
    }
    int dataCount() {
        for (int row = grid_->GetNumberRows() - 1; row >= 0; --row) {
            if (!keyOf(row).empty())
                return row + 1;
        }
        return 0;
    }

    /// Draws the visible cells into an image. A real window is painted when the display asks for
    /// it, which cannot be timed from here.
    void paint() {
        const int first = grid_->GetFirstFullyVisibleRow();
        wxBitmap bitmap(windowWidth, windowHeight);
        wxMemoryDC image(bitmap);
        grid_->Render(
            image, wxDefaultPosition, wxDefaultSize, wxGridCellCoords(first, 0),
            wxGridCellCoords(first + windowHeight / rowPixels - 2,
                             std::min(grid_->GetNumberCols(), windowWidth / colPixels) - 1),
            wxGRID_DRAW_COLS_HEADER | wxGRID_DRAW_CELL_LINES);
    }

private:
    static void handleEvents() {
        wxEventLoopBase *loop = wxEventLoopBase::GetActive();
        for (int count = 0; loop != nullptr && loop->Pending() && count < 100; ++count)
            loop->Dispatch();
        wxTheApp->ProcessPendingEvents();
        wxTheApp->ProcessIdle();
    }
    wxString keyOf(int row) const { return grid_->GetCellValue(row, keyCol).Trim().Trim(false); }

    Kind kind_;
    wxFrame *frame_;
    wxGrid *grid_;
};

/// As most programs do it. wxGrid looks at its window for each cell that it is given outside a
/// batch.
void fillingOutsideABatch(Size size, const Repeats &repeats) {
    const CellTexts texts(size);
    onNewPeer<WxGrid>("fill outside a batch", size, repeats, [&](WxGrid &peer) {
        for (int row = 0; row < size.rows; ++row) {
            for (int col = 0; col < size.cols; ++col)
                peer.set(row, col, texts.text(row, col));
        }
    });
}

void painting(Size size, const Repeats &repeats) {
    WxGrid peer(size, Kind::Full);
    peer.show();
    fillFull(peer, size, CellTexts(size));
    repeats.measure(
        "full frame", size, [] {}, [&] { peer.paint(); });
}

class Program : public wxApp {
public:
    bool OnInit() override { return true; }
    int OnRun() override {
        wxGUIEventLoop loop;
        const wxEventLoopActivator active(&loop);
        std::vector<std::string> rest;
        for (int index = 1; index < argc; ++index)
            rest.push_back(argv[index].ToStdString());
        return runProgram<WxGrid>(rest, [](Size size, const Repeats &repeats) {
            fillingOutsideABatch(size, repeats);
            painting(size, repeats);
        });
    }
};

} // namespace

wxIMPLEMENT_APP(Program);
