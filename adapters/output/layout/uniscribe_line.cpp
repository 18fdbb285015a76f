#include "adapters/output/layout/uniscribe_line.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

#include "platform/utf16.h"

namespace kelvane::output {

namespace {

void Check(HRESULT result) {
    if (FAILED(result)) throw std::runtime_error("the system lays out no letters");
}

// Whether the first letter that has a direction runs from right to left.
bool RunsFromRight(const std::wstring& text) {
    std::vector<WORD> types(text.size());
    GetStringTypeW(CT_CTYPE2, text.data(), static_cast<int>(text.size()), types.data());
    for (const WORD type : types) {
        if (type == C2_LEFTTORIGHT || type == C2_RIGHTTOLEFT) return type == C2_RIGHTTOLEFT;
    }
    return false;
}

class SelectedFont {
public:
    SelectedFont(HDC context, HFONT font)
        : mContext(context), mBefore(SelectObject(context, font)) {}
    ~SelectedFont() { SelectObject(mContext, mBefore); }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

private:
    HDC mContext;
    HGDIOBJ mBefore;
};

// Characters of one script and direction.
struct Piece {
    int first;
    int length;
    SCRIPT_ANALYSIS analysis;
};

class LineShaper {
public:
    LineShaper(HDC context, std::span<ShapingFont> fonts, std::wstring text)
        : mContext(context), mFonts(fonts), mText(std::move(text)) {}

    std::vector<ShapedRun> Runs() {
        for (const Piece& piece : Pieces()) Add(piece, 0);
        return InVisualOrder();
    }

private:
    std::vector<Piece> Pieces() const {
        const int length = static_cast<int>(mText.size());
        if (length == 0) return {};
        // As many as there are characters, and one that says where the last one ends.
        std::vector<SCRIPT_ITEM> items(mText.size() + 2);
        const SCRIPT_CONTROL control{};
        SCRIPT_STATE state{};
        state.uBidiLevel = RunsFromRight(mText) ? 1 : 0;
        int count = 0;
        Check(ScriptItemize(mText.data(), length, length + 1, &control, &state, items.data(),
                            &count));
        std::vector<Piece> pieces;
        for (auto item = items.begin(); item != items.begin() + count; ++item) {
            pieces.push_back({item->iCharPos, item[1].iCharPos - item->iCharPos, item->a});
        }
        return pieces;
    }

    // Adds the runs of a piece: what `font` lacks goes to the fonts after it.
    void Add(const Piece& piece, std::size_t font) {
        if (font == mFonts.size()) {
            mRuns.push_back(Shape(piece, 0).run);
            return;
        }
        Shaped shaped = Shape(piece, font);
        const std::vector<bool>& lacking = shaped.lacking;
        if (std::find(lacking.begin(), lacking.end(), true) == lacking.end()) {
            mRuns.push_back(std::move(shaped.run));
            return;
        }
        for (auto from = lacking.begin(); from != lacking.end();) {
            const auto to = std::find(from, lacking.end(), !*from);
            const Piece part{piece.first + static_cast<int>(from - lacking.begin()),
                             static_cast<int>(to - from), piece.analysis};
            Add(part, *from ? font + 1 : font);
            from = to;
        }
    }

    struct Shaped {
        ShapedRun run;
        std::vector<bool> lacking;  // for each character: whether the font lacks it
    };

    Shaped Shape(const Piece& piece, std::size_t font) {
        const SelectedFont selected(mContext, mFonts[font].Handle());
        SCRIPT_CACHE& cache = mFonts[font].Cache();
        SCRIPT_ANALYSIS analysis = piece.analysis;
        analysis.fLogicalOrder = TRUE;

        Shaped shaped;
        ShapedRun& run = shaped.run;
        run.font = font;
        run.level = static_cast<BYTE>(analysis.s.uBidiLevel);
        std::vector<WORD> firstGlyphs(static_cast<std::size_t>(piece.length));
        std::vector<SCRIPT_VISATTR> attributes;
        int count = 0;
        HRESULT result = E_OUTOFMEMORY;
        run.glyphs.resize(firstGlyphs.size() + 16);
        while (result == E_OUTOFMEMORY) {
            run.glyphs.resize(run.glyphs.size() * 2);
            attributes.resize(run.glyphs.size());
            result = ScriptShape(mContext, &cache, mText.data() + piece.first, piece.length,
                                 static_cast<int>(run.glyphs.size()), &analysis, run.glyphs.data(),
                                 firstGlyphs.data(), attributes.data(), &count);
            if (result == USP_E_SCRIPT_NOT_IN_FONT && analysis.eScript != SCRIPT_UNDEFINED) {
                analysis.eScript = SCRIPT_UNDEFINED;
                result = E_OUTOFMEMORY;
            }
        }
        Check(result);
        const auto glyphs = static_cast<std::size_t>(count);
        run.glyphs.resize(glyphs);
        run.advances.resize(glyphs);
        run.offsets.resize(glyphs);
        ABC sum;
        Check(ScriptPlace(mContext, &cache, run.glyphs.data(), count, attributes.data(), &analysis,
                          run.advances.data(), run.offsets.data(), &sum));
        SCRIPT_FONTPROPERTIES properties{};
        properties.cBytes = sizeof properties;
        Check(ScriptGetFontProperties(mContext, &cache, &properties));
        AddClusters(piece, firstGlyphs, properties.wgDefault, shaped);
        return shaped;
    }

    void AddClusters(const Piece& piece, const std::vector<WORD>& firstGlyphs, WORD absent,
                     Shaped& shaped) const {
        std::size_t glyph = 0;
        for (std::size_t from = 0; from < firstGlyphs.size();) {
            std::size_t to = from + 1;
            while (to < firstGlyphs.size() && firstGlyphs[to] == firstGlyphs[from]) ++to;
            const std::size_t end =
                to < firstGlyphs.size() ? firstGlyphs[to] : shaped.run.glyphs.size();
            std::string text;
            platform::ReadUtf16(mText.data() + piece.first + from, to - from, text);
            shaped.run.text += text;
            shaped.run.clusters.push_back(
                {static_cast<int>(text.size()), static_cast<int>(end - glyph)});
            const auto glyphs = shaped.run.glyphs.begin();
            const bool lacking = std::find(glyphs + static_cast<std::ptrdiff_t>(glyph),
                                           glyphs + static_cast<std::ptrdiff_t>(end),
                                           absent) != glyphs + static_cast<std::ptrdiff_t>(end);
            shaped.lacking.insert(shaped.lacking.end(), to - from, lacking);
            glyph = end;
            from = to;
        }
    }

    std::vector<ShapedRun> InVisualOrder() {
        std::vector<BYTE> levels;
        for (const ShapedRun& run : mRuns) levels.push_back(run.level);
        std::vector<int> places(mRuns.size());
        if (!mRuns.empty()) {
            Check(ScriptLayout(static_cast<int>(levels.size()), levels.data(), places.data(),
                               nullptr));
        }
        std::vector<ShapedRun> ordered;
        for (const int place : places) {
            ordered.push_back(std::move(mRuns[static_cast<std::size_t>(place)]));
        }
        return ordered;
    }

    HDC mContext;
    std::span<ShapingFont> mFonts;
    std::wstring mText;
    std::vector<ShapedRun> mRuns;
};

}  // namespace

int ShapedRun::Width() const {
    return std::accumulate(advances.begin(), advances.end(), 0);
}

std::vector<ShapedRun> ShapeLine(HDC context, std::span<ShapingFont> fonts, std::string_view text) {
    return LineShaper(context, fonts, platform::ToUtf16<wchar_t>(text)).Runs();
}

}  // namespace kelvane::output
