// An agent that is linked with the map library.

#include "framework.h"

extern "C" OzkMapFunction ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces;

int main()
{
    return map_one_request(ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces);
}
