// A read of all interfaces, over the stand-in of the framework.

#include <cstdio>

#include <run.h>
#include <ymap_ietf_if.h>

int main()
{
    ozk::InputTree request;
    request.root().tag    = "interfaces";
    request.root().ns_uri = NS_IETF_INTERFACES;
    ozk::Run run(MAP_OP_GET_CONFIG);
    run.walk(ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces, &request.root());
    for (const ozk::AddedPath& added : run.added())
        std::printf("%.*s\n", static_cast<int>(added.path.size()), added.path.data());
}
