// The real window: how soon its rows are painted, and how many pages a second it paints.
#include "bench/window.h"

#include <wx/evtloop.h>
#include <wx/scrolbar.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "bench/accounts.h"
#include "bench/child.h"
#include "bench/entry_windows.h"
#include "bench/samples.h"
#include "host/surroundings/screen.h"

namespace kelvane::bench {

namespace {

constexpr std::int64_t kEntries = 100'000;
constexpr int kPages = 120;
constexpr double kMaxWait = 5;  // seconds

// Places of the numbers that a child answers with.
constexpr std::size_t kFirstPaint = 0;
constexpr std::size_t kScrolled = 1;
constexpr std::size_t kPagedDown = 2;
constexpr std::size_t kMoved = 3;
constexpr std::size_t kTimes = 4;

// The window on which the list's cells are painted: it lies beside the scroll bars.
wxWindow* CanvasIn(wxWindow& window) {
    for (wxWindow* child : window.GetChildren()) {
        if (dynamic_cast<wxScrollBar*>(child) != nullptr) {
            for (wxWindow* beside : window.GetChildren()) {
                if (dynamic_cast<wxScrollBar*>(beside) == nullptr) return beside;
            }
        }
        if (wxWindow* canvas = CanvasIn(*child)) return canvas;
    }
    return nullptr;
}

// Counts how often a window is painted.
class PaintCounter {
public:
    explicit PaintCounter(wxWindow& window) : mWindow(window) {
        mWindow.Bind(wxEVT_PAINT, &PaintCounter::OnPaint, this);
    }
    ~PaintCounter() { mWindow.Unbind(wxEVT_PAINT, &PaintCounter::OnPaint, this); }
    PaintCounter(const PaintCounter&) = delete;
    PaintCounter& operator=(const PaintCounter&) = delete;

    // Does something that can be seen and waits until it is; the seconds it took.
    double TimeOf(const std::function<void()>& change) {
        const int before = mCount;
        const double start = Now();
        change();
        while (mCount == before) {
            if (Now() - start > kMaxWait) throw std::runtime_error("nothing is painted");
            wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
        }
        return Now() - start;
    }

private:
    void OnPaint(wxPaintEvent& event) {
        ++mCount;
        event.Skip();
    }

    wxWindow& mWindow;
    int mCount = 0;
};

// What 19 of 20 frames keep.
double SteadyTime(std::vector<double> frames) {
    std::sort(frames.begin(), frames.end());
    return frames[frames.size() * 19 / 20];
}

// Pages through the entry list as soon as it can be seen.
class Pager : public drive::Operator {
public:
    double times[kTimes] = {};

    void Opened(const std::string&) override { mLoaded = Now(); }
    bool Act(controls::Form& topmost) override {
        times[kFirstPaint] = Now() - mLoaded;
        auto& form = dynamic_cast<ui::frmPeriodItem&>(topmost);
        controls::Grid& grid = form.GridPeriodItem;
        wxWindow* canvas = CanvasIn(*wxTopLevelWindows.GetLast()->GetData());
        if (canvas == nullptr) throw std::runtime_error("the list has no window");
        PaintCounter painted(*canvas);
        times[kScrolled] = TimeOfPages(
            painted, [&] { grid.SetTopRow(grid.TopRow() + std::max(1, grid.VisibleRows())); });
        grid.SetTopRow(1);
        grid.MoveTo(1, ui::kDigestColumn);
        grid.SetFocus();
        times[kPagedDown] = TimeOfPages(painted, [&] { form.KeyDown(platform::Key::PageDown, 0); });
        // To and fro in one row.
        bool right = false;
        times[kMoved] = TimeOfPages(painted, [&] {
            right = !right;
            form.KeyDown(right ? platform::Key::Right : platform::Key::Left, 0);
        });
        return false;
    }
    platform::MessageAnswer Answer(const platform::Message& message) override {
        return message.preselected;
    }
    void Closed(const std::string&) override {}
    void Focused(const std::string&) override {}
    void Refused(int, int) override {}
    void Beeped() override {}
    std::optional<std::size_t> Pick(const std::vector<std::string>&,
                                    const std::vector<std::vector<std::string>>&) override {
        return {};
    }
    std::optional<std::string> ChooseFile() override { return {}; }

private:
    static double TimeOfPages(PaintCounter& painted, const std::function<void()>& page) {
        std::vector<double> frames;
        for (int i = 0; i < kPages; ++i) frames.push_back(painted.TimeOf(page));
        return SteadyTime(std::move(frames));
    }

    double mLoaded = 0;
};

// Against `most` seconds: the child's number `of`.
void Report(benchmark::State& state, const std::string& metric, std::size_t of, double most) {
    if (std::getenv("DISPLAY") == nullptr) return state.SkipWithError("there is no screen");
    Samples samples;
    for (auto _ : state) {
        const double seconds = AskChild(kWindowOption, NewAccountWith(kEntries), kTimes)[of];
        state.SetIterationTime(seconds);
        samples.Add(most, seconds);
    }
    samples.Report(state, metric, kMilliseconds, 1);
}

void WindowFirstPaint(benchmark::State& state) {
    Report(state, "100,000 entries: loaded to painted, ms", kFirstPaint, 0.100);
}

void WindowScrolling(benchmark::State& state) {
    Report(state, "100,000 entries: a page by scroll bar, ms", kScrolled, 1.0 / 30);
}

void WindowPageDown(benchmark::State& state) {
    Report(state, "100,000 entries: a page by key, row saved, ms", kPagedDown, 1.0 / 30);
}

void WindowKey(benchmark::State& state) {
    Report(state, "100,000 entries: a key to its paint, ms", kMoved, 0.016);
}

BENCHMARK(WindowFirstPaint)->UseManualTime()->Iterations(5);
BENCHMARK(WindowScrolling)->UseManualTime()->Iterations(3);
BENCHMARK(WindowPageDown)->UseManualTime()->Iterations(3);
BENCHMARK(WindowKey)->UseManualTime()->Iterations(3);

}  // namespace

int WriteTimesOfWindow(const std::string& account) {
    Pager pager;
    return host::RunOnScreen(&pager, [&](const host::Screen& screen) {
        host::Session session(host::AccountPlace::File(account), screen.windows, nullptr);
        session.LogIn({}, platform::DateTime{2004, 6, 30});
        session.Show();
        for (const double time : pager.times) std::printf("%.6f\n", time);
        return 0;
    });
}

}  // namespace kelvane::bench
