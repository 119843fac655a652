// The walks that a request needs: its roots one after the other, each with the root walker of the
// loaded library.

#ifndef YMAP_HOST_WALK_H
#define YMAP_HOST_WALK_H

#include <functional>
#include <vector>

#include "document.h"
#include "library.h"
#include "output.h"
#include "run.h"

namespace ymap::host {

/// A root of a request together with its walker.
struct Step {
    const RequestRoot* root;
    OzkMapFunction* walker;
};

/// The walks that `request` needs; the steps point into it. A root that the library lacks is an
/// error, unless the request asks for all there is. Throws InputError.
std::vector<Step> plan_walks(const Request& request, const MapLibrary& library);

/// Walks the roots up to the first status other than 0: the rest of the request is then not mapped,
/// as the siblings of a failed node are not. It takes the run's listener for itself; `observe` is
/// told of each call in its place.
std::vector<Walk> walk_roots(ozk::Run& run, const std::vector<Step>& steps,
                             const std::function<void(const ozk::Call&)>& observe = nullptr);

} // namespace ymap::host

#endif
