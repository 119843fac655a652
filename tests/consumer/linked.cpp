// An agent that is linked with the map library.

#include <ymap_ietf_if.h>

#include "framework.h"

int main()
{
    return map_one_request(ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces);
}
