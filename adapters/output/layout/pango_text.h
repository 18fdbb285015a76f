// The pages' fonts as Pango has them, for measuring and for painting.
#pragma once

#include <pango/pangocairo.h>

#include <memory>

#include "adapters/output/layout/cairo_use.h"
#include "adapters/output/layout/text_measurer.h"

namespace kelvane::output {

using PangoContextPointer = std::unique_ptr<PangoContext, Releaser<g_object_unref>>;
using PangoLayoutPointer = std::unique_ptr<PangoLayout, Releaser<g_object_unref>>;
using PangoFontPointer =
    std::unique_ptr<PangoFontDescription, Releaser<pango_font_description_free>>;

// One unit is a point, and letters keep their proportions at every size.
PangoContextPointer MakePageContext();

PangoFontPointer MakePageFont(const Letters& letters);

}  // namespace kelvane::output
