// An integrator's own framework: every operation that a map library calls, in a few lines, and one
// request to try it with.

#ifndef CONSUMER_FRAMEWORK_H
#define CONSUMER_FRAMEWORK_H

#include <ymap.h>

/// What the framework hands to the library as its output tree: here, nothing but a count.
struct OzkDataTree {
    unsigned paths = 0;
};

/// Lets `walker` map an edit of a description, prints the paths that come of it and returns an exit
/// status: 0 if the walk succeeded.
int map_one_request(OzkMapFunction* walker);

#endif
