#pragma once

#include <functional>
#include <map>
#include <vector>

#include <QLineEdit>

#include "front_ends/qt/pictures.h"
#include "platform/elements.h"

namespace solvanta::qt {

/// Runs one event of an element and then brings all windows in line with their forms.
using Deliver = std::function<void(Event)>;

/// What the widgets of one window share.
struct WindowParts {
    Deliver deliver;
    Pictures& pictures;
    Scale scale;                               ///< of the form in logical pixels
    QColor background;                         ///< of the form's client area
    std::vector<std::function<void()>> syncs;  ///< each brings one widget in line
    std::map<const TextBox*, QLineEdit*> text_boxes;
};

}  // namespace solvanta::qt
