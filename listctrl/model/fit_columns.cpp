#include "listctrl/model/fit_columns.h"

#include <algorithm>

namespace mc {

int fittedWidth(unsigned command, int dataWidth, int headerWidth, int clientWidth, int columns) {
    switch (command) {
        case kFitToDataCommand:
            return std::max(dataWidth, kLeastFittedWidth);
        case kFitToHeaderCommand:
            return std::max(headerWidth, kLeastFittedWidth);
        case kFitToWindowCommand:
            return clientWidth > 0 && columns > 0 ? clientWidth / columns : kLeastFittedWidth;
        default:
            return std::max({dataWidth, headerWidth, kLeastFittedWidth});
    }
}

}  // namespace mc
