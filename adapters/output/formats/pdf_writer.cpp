#include "adapters/output/formats/pdf_writer.h"

#include <cairo-pdf.h>

#include <memory>
#include <string>

#include "adapters/output/formats/table_export.h"
#include "adapters/output/layout/cairo_use.h"
#include "adapters/output/layout/page_painter.h"

namespace kelvane::output {

namespace {

// Takes cairo's output; a failure of the file is kept, for exceptions cannot pass through cairo.
struct Sink {
    SafeFile& file;
    std::string failure;

    static cairo_status_t Write(void* closure, const unsigned char* bytes, unsigned length) {
        auto* sink = static_cast<Sink*>(closure);
        try {
            sink->file.Write({reinterpret_cast<const char*>(bytes), length});
            return CAIRO_STATUS_SUCCESS;
        } catch (const std::exception& failed) {
            if (sink->failure.empty()) sink->failure = failed.what();
            return CAIRO_STATUS_WRITE_ERROR;
        }
    }

    void Check(cairo_status_t status) const {
        if (!failure.empty()) throw FileFailure(failure);
        if (status != CAIRO_STATUS_SUCCESS) file.Fail(cairo_status_to_string(status));
    }
};

using SurfacePointer = std::unique_ptr<cairo_surface_t, Releaser<cairo_surface_destroy>>;
using TargetPointer = std::unique_ptr<cairo_t, Releaser<cairo_destroy>>;

}  // namespace

void WritePdf(const platform::PageSource& pages, SafeFile& file, WorkMeter& meter) {
    Sink sink{file, {}};
    CairoUse use;
    const SurfacePointer surface(cairo_pdf_surface_create_for_stream(
        Sink::Write, &sink, PointsOfTenths(pages.PageWidth()), PointsOfTenths(pages.PageHeight())));
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, pages.Title().c_str());
    {
        const TargetPointer target(cairo_create(surface.get()));
        PagePainter painter(target.get());
        for (int number = 1; number <= pages.PageCount(); ++number) {
            painter.Paint(pages.MakePage(number));
            cairo_show_page(target.get());
            sink.Check(cairo_status(target.get()));
            const CairoUse::Pause pause(use);
            meter.Step();
        }
    }
    cairo_surface_finish(surface.get());
    sink.Check(cairo_surface_status(surface.get()));
}

void WritePdf(const Export& data, SafeFile& file) {
    const platform::PageSource& pages = data.pages();
    WorkMeter meter = data.Meter(static_cast<std::size_t>(pages.PageCount()));
    WritePdf(pages, file, meter);
}

}  // namespace kelvane::output
