#include "listctrl/model/fit_columns.h"

#include <algorithm>

namespace mc {

int fittedWidth(unsigned command, int dataWidth, int headerWidth, int clientWidth, int columns) {
    switch (command) {
        case kFitToDataCommand:
            return std::max(dataWidth, kMinFittedWidth);
        case kFitToHeaderCommand:
            return std::max(headerWidth, kMinFittedWidth);
        case kFitToWindowCommand:
            return clientWidth > 0 && columns > 0 ? clientWidth / columns : kMinFittedWidth;
        default:
            return std::max({dataWidth, headerWidth, kMinFittedWidth});
    }
}

}  // namespace mc
