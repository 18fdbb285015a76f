// The system shapes the lines; cairo takes their glyphs from the same fonts.

#include <cairo-win32.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "adapters/output/layout/cairo_use.h"
#include "adapters/output/layout/gdi_fonts.h"
#include "adapters/output/layout/page_letters.h"
#include "adapters/output/layout/uniscribe_line.h"

namespace kelvane::output {

namespace {

using FacePointer = std::unique_ptr<cairo_font_face_t, Releaser<cairo_font_face_destroy>>;

// The pages' fonts, plain or bold, in the order in which they are asked for a letter.
struct FontRow {
    std::vector<ShapingFont> fonts;
    std::vector<FacePointer> faces;
    TEXTMETRICW metrics{};  // of the first one, in dots
};

class GdiLetters : public PageLetters {
public:
    GdiLetters() : mContext(MakeFontContext()) {
        std::vector<std::wstring> names = PageFontNames(mContext.get());
        for (std::wstring& name : SpareFontNames(mContext.get())) names.push_back(std::move(name));
        for (const bool bold : {false, true}) {
            FontRow& row = mRows[bold ? 1 : 0];
            for (const std::wstring& name : names) {
                LOGFONTW font = FontNamed(name, bold);
                row.fonts.emplace_back(font);
                row.faces.emplace_back(cairo_win32_font_face_create_for_logfontw(&font));
            }
            HGDIOBJ before = SelectObject(mContext.get(), row.fonts.front().Handle());
            GetTextMetricsW(mContext.get(), &row.metrics);
            SelectObject(mContext.get(), before);
        }
    }

    Extent Lay(std::string_view text, const Letters& letters) override {
        mRow = &mRows[letters.bold ? 1 : 0];
        mPoints = letters.size / 10.0;
        mRuns = ShapeLine(mContext.get(), mRow->fonts, text);
        int width = 0;
        for (const ShapedRun& run : mRuns) width += run.Width();
        return {Points(width), Points(mRow->metrics.tmAscent + mRow->metrics.tmDescent)};
    }

    void Paint(cairo_t* target) override {
        cairo_set_font_size(target, mPoints);
        int left = 0;
        for (const ShapedRun& run : mRuns) {
            PaintRun(target, run, left);
            left += run.Width();
        }
    }

private:
    double Points(LONG dots) const { return static_cast<double>(dots) * mPoints / kFontDots; }

    void PaintRun(cairo_t* target, const ShapedRun& run, int left) {
        const bool leftwards = run.level % 2 != 0;
        int pen = leftwards ? left + run.Width() : left;
        mGlyphs.clear();
        for (std::size_t at = 0; at < run.glyphs.size(); ++at) {
            if (leftwards) pen -= run.advances[at];
            mGlyphs.push_back({run.glyphs[at], Points(pen + run.offsets[at].du),
                               Points(mRow->metrics.tmAscent - run.offsets[at].dv)});
            if (!leftwards) pen += run.advances[at];
        }
        mClusters.clear();
        for (const ShapedCluster& cluster : run.clusters) {
            mClusters.push_back({cluster.bytes, cluster.glyphs});
        }
        cairo_set_font_face(target, mRow->faces[run.font].get());
        cairo_show_text_glyphs(target, run.text.data(), static_cast<int>(run.text.size()),
                               mGlyphs.data(), static_cast<int>(mGlyphs.size()), mClusters.data(),
                               static_cast<int>(mClusters.size()),
                               static_cast<cairo_text_cluster_flags_t>(0));
    }

    ContextPointer mContext;
    std::array<FontRow, 2> mRows;  // plain and bold

    // The line that was laid out.
    FontRow* mRow = nullptr;
    double mPoints = 0;
    std::vector<ShapedRun> mRuns;

    std::vector<cairo_glyph_t> mGlyphs;
    std::vector<cairo_text_cluster_t> mClusters;
};

}  // namespace

std::unique_ptr<PageLetters> SystemLetters() {
    return std::make_unique<GdiLetters>();
}

}  // namespace kelvane::output
