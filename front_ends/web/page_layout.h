#pragma once

namespace solvanta::web {

/// Sizes in the page's own pixels.
struct Size {
    double width = 0;
    double height = 0;
};

/// How the card table stands in the page.
struct Layout {
    double scale = 1;       ///< pixels of the page to a pixel of the form
    bool compact = false;   ///< buttons and labels in a bar of their own, fit for fingers
    bool sideways = false;  ///< with that bar beside the table instead of below it
};

/// How a form of `client` pixels, of which the part above `cards_height` shows cards, fills a page
/// of this size best. Nothing is scaled beyond `largest`. `touched` tells that a finger is all the
/// player has.
Layout layout_for(Size page, Size client, double cards_height, bool touched, double largest);

/// How a window of `client` pixels beside the table is scaled: as the table, as far as it fits.
double scale_beside(Size page, Size client, double table_scale);

}  // namespace solvanta::web
