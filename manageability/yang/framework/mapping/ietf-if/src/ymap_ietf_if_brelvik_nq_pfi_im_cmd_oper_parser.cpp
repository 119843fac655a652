// The model Brelvik-NQ-pfi-im-cmd-oper as it is walked, in schema pre-order: each walker with its
// child table, its default augment hook, then its children. The framework enters by the root
// walker; a hook of the _man source may take a default hook's place.

#include "ymap_ietf_if.h"
#include "ymap_walkers.h"

using namespace ymap;

namespace {

/// State data throughout: MAP_OP_GET alone reaches it.
struct Operational {
    static constexpr const char* ns_uri  = NS_NQ_PFI_IM_CMD_OPER;
    static constexpr Direction direction = Direction::to_ietf;
    static constexpr bool gated          = true;
    static constexpr bool whole          = false;
};

} // namespace

#define YMAP_NAME(KIND, STEM) ymap_qi_ietf_if_brelviknqpfiimcmdoper_##KIND##STEM

// clang-format off

extern "C" {

// /interfaces
YMAP_CONTAINER(Operational, lvla_interfaces,
    YMAP_CHILD("interface-nq",      lvla_interfaces_interfacenq),
    YMAP_CHILD("node-type-sets",    lvla_interfaces_nodetypesets),
    YMAP_CHILD("interface-briefs",  lvla_interfaces_interfacebriefs),
    YMAP_CHILD("inventory-summary", lvla_interfaces_inventorysummary),
    YMAP_CHILD("interfaces",        lvla_interfaces_interfaces),
    YMAP_CHILD("interface-summary", lvla_interfaces_interfacesummary));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_parse_augments, EmptyHandler);

// /interfaces/interface-nq
YMAP_CONTAINER(Operational, lvla_interfaces_interfacenq,
    YMAP_CHILD("interface", lvla_interfaces_interfacenq_interface));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacenq_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface
YMAP_LIST(Operational, lvla_interfaces_interfacenq_interface, "/interfaces/interface-nq/interface",
    YMAP_LEAF ("interface-name",             lvla_interfaces_interface_interfacename),
    YMAP_CHILD("dampening-information",      lvla_interfaces_interface_dampeninginformation),
    YMAP_CHILD("mac-address",                lvla_interfaces_interface_macaddress),
    YMAP_CHILD("burned-in-address",          lvla_interfaces_interface_burnedinaddress),
    YMAP_CHILD("carrier-delay",              lvla_interfaces_interface_carrierdelay),
    YMAP_CHILD("arp-information",            lvla_interfaces_interface_arpinformation),
    YMAP_CHILD("ip-information",             lvla_interfaces_interface_ipinformation),
    YMAP_CHILD("encapsulation-information",  lvla_interfaces_interface_encapsulationinformation),
    YMAP_CHILD("interface-type-information", lvla_interfaces_interface_interfacetypeinformation),
    YMAP_CHILD("data-rates",                 lvla_interfaces_interface_datarates),
    YMAP_CHILD("interface-statistics",       lvla_interfaces_interface_interfacestatistics),
    YMAP_CHILD("l2-interface-statistics",    lvla_interfaces_interface_l2interfacestatistics),
    YMAP_CHILD("nv-optical",                 lvla_interfaces_interface_nvoptical),
    YMAP_LEAF ("interface-handle",           lvla_interfaces_interface_interfacehandle),
    YMAP_LEAF ("interface-type",             lvla_interfaces_interface_interfacetype),
    YMAP_LEAF ("hardware-type-string",       lvla_interfaces_interface_hardwaretypestring),
    YMAP_LEAF ("state",                      lvla_interfaces_interface_state),
    YMAP_LEAF ("line-state",                 lvla_interfaces_interface_linestate),
    YMAP_LEAF ("encapsulation",              lvla_interfaces_interface_encapsulation),
    YMAP_LEAF ("encapsulation-type-string",  lvla_interfaces_interface_encapsulationtypestring),
    YMAP_LEAF ("mtu",                        lvla_interfaces_interface_mtu),
    YMAP_LEAF ("is-l2-transport-enabled",    lvla_interfaces_interface_isl2transportenabled),
    YMAP_LEAF ("state-transition-count",     lvla_interfaces_interface_statetransitioncount),
    YMAP_LEAF ("last-state-transition-time", lvla_interfaces_interface_laststatetransitiontime),
    YMAP_LEAF ("is-dampening-enabled",       lvla_interfaces_interface_isdampeningenabled),
    YMAP_LEAF ("speed",                      lvla_interfaces_interface_speed),
    YMAP_LEAF ("crc-length",                 lvla_interfaces_interface_crclength),
    YMAP_LEAF ("is-scramble-enabled",        lvla_interfaces_interface_isscrambleenabled),
    YMAP_LEAF ("duplexity",                  lvla_interfaces_interface_duplexity),
    YMAP_LEAF ("media-type",                 lvla_interfaces_interface_mediatype),
    YMAP_LEAF ("link-type",                  lvla_interfaces_interface_linktype),
    YMAP_LEAF ("in-flow-control",            lvla_interfaces_interface_inflowcontrol),
    YMAP_LEAF ("out-flow-control",           lvla_interfaces_interface_outflowcontrol),
    YMAP_LEAF ("bandwidth",                  lvla_interfaces_interface_bandwidth),
    YMAP_LEAF ("max-bandwidth",              lvla_interfaces_interface_maxbandwidth),
    YMAP_LEAF ("keepalive",                  lvla_interfaces_interface_keepalive),
    YMAP_LEAF ("is-l2-looped",               lvla_interfaces_interface_isl2looped),
    YMAP_LEAF ("parent-interface-name",      lvla_interfaces_interface_parentinterfacename),
    YMAP_LEAF ("loopback-configuration",     lvla_interfaces_interface_loopbackconfiguration),
    YMAP_LEAF ("description",                lvla_interfaces_interface_description),
    YMAP_LEAF ("is-maintenance-enabled",     lvla_interfaces_interface_ismaintenanceenabled),
    YMAP_LEAF ("is-data-inverted",           lvla_interfaces_interface_isdatainverted),
    YMAP_LEAF ("transport-mode",             lvla_interfaces_interface_transportmode));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacenq_interface_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/dampening-information
YMAP_CONTAINER(Operational, lvla_interfaces_interface_dampeninginformation,
    YMAP_LEAF ("penalty",               lvla_interfaces_dampeninginformation_penalty),
    YMAP_LEAF ("is-suppressed-enabled", lvla_interfaces_dampeninginformation_issuppressedenabled),
    YMAP_LEAF ("seconds-remaining",     lvla_interfaces_dampeninginformation_secondsremaining),
    YMAP_LEAF ("half-life",             lvla_interfaces_dampeninginformation_halflife),
    YMAP_LEAF ("reuse-threshold",       lvla_interfaces_dampeninginformation_reusethreshold),
    YMAP_LEAF ("suppress-threshold",    lvla_interfaces_dampeninginformation_suppressthreshold),
    YMAP_LEAF ("maximum-suppress-time", lvla_interfaces_dampeninginformation_maximumsuppresstime),
    YMAP_LEAF ("restart-penalty",       lvla_interfaces_dampeninginformation_restartpenalty));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_dampeninginformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/mac-address
YMAP_CONTAINER(Operational, lvla_interfaces_interface_macaddress,
    YMAP_LEAF ("address", lvla_interfaces_macaddress_address));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_macaddress_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/burned-in-address
YMAP_CONTAINER(Operational, lvla_interfaces_interface_burnedinaddress,
    YMAP_LEAF ("address", lvla_interfaces_burnedinaddress_address));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_burnedinaddress_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/carrier-delay
YMAP_CONTAINER(Operational, lvla_interfaces_interface_carrierdelay,
    YMAP_LEAF ("carrier-delay-up",   lvla_interfaces_carrierdelay_carrierdelayup),
    YMAP_LEAF ("carrier-delay-down", lvla_interfaces_carrierdelay_carrierdelaydown));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_carrierdelay_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/arp-information
YMAP_CONTAINER(Operational, lvla_interfaces_interface_arpinformation,
    YMAP_LEAF ("arp-timeout",              lvla_interfaces_arpinformation_arptimeout),
    YMAP_LEAF ("arp-type-name",            lvla_interfaces_arpinformation_arptypename),
    YMAP_LEAF ("arp-is-learning-disabled", lvla_interfaces_arpinformation_arpislearningdisabled));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_arpinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/ip-information
YMAP_CONTAINER(Operational, lvla_interfaces_interface_ipinformation,
    YMAP_LEAF ("ip-address",         lvla_interfaces_ipinformation_ipaddress),
    YMAP_LEAF ("subnet-mask-length", lvla_interfaces_ipinformation_subnetmasklength));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_ipinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information
YMAP_CONTAINER(Operational, lvla_interfaces_interface_encapsulationinformation,
    YMAP_CHILD("frame-relay-information", lvla_interfaces_encapsulationinformation_framerelayinformation),
    YMAP_CHILD("dot1q-information",       lvla_interfaces_encapsulationinformation_dot1qinformation),
    YMAP_CHILD("ppp-information",         lvla_interfaces_encapsulationinformation_pppinformation),
    YMAP_LEAF ("encapsulation-type",      lvla_interfaces_encapsulationinformation_encapsulationtype));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_encapsulationinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/frame-relay-information
YMAP_CONTAINER(Operational, lvla_interfaces_encapsulationinformation_framerelayinformation,
    YMAP_LEAF ("fr-encapsulation-type",  lvla_interfaces_framerelayinformation_frencapsulationtype),
    YMAP_LEAF ("lmi-type",               lvla_interfaces_framerelayinformation_lmitype),
    YMAP_LEAF ("lmidlci",                lvla_interfaces_framerelayinformation_lmidlci),
    YMAP_LEAF ("is-nni",                 lvla_interfaces_framerelayinformation_isnni),
    YMAP_LEAF ("is-dte",                 lvla_interfaces_framerelayinformation_isdte),
    YMAP_LEAF ("is-lmi-up",              lvla_interfaces_framerelayinformation_islmiup),
    YMAP_LEAF ("is-lmi-nni-dce-up",      lvla_interfaces_framerelayinformation_islminnidceup),
    YMAP_LEAF ("is-lmi-enabled",         lvla_interfaces_framerelayinformation_islmienabled),
    YMAP_LEAF ("enquiries-received",     lvla_interfaces_framerelayinformation_enquiriesreceived),
    YMAP_LEAF ("enquiries-sent",         lvla_interfaces_framerelayinformation_enquiriessent),
    YMAP_LEAF ("status-received",        lvla_interfaces_framerelayinformation_statusreceived),
    YMAP_LEAF ("status-sent",            lvla_interfaces_framerelayinformation_statussent),
    YMAP_LEAF ("update-status-received", lvla_interfaces_framerelayinformation_updatestatusreceived),
    YMAP_LEAF ("update-status-sent",     lvla_interfaces_framerelayinformation_updatestatussent));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_encapsulationinformation_framerelayinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information
YMAP_CONTAINER(Operational, lvla_interfaces_encapsulationinformation_dot1qinformation,
    YMAP_CHILD("encapsulation-details", lvla_interfaces_dot1qinformation_encapsulationdetails));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_encapsulationinformation_dot1qinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details
YMAP_CONTAINER(Operational, lvla_interfaces_dot1qinformation_encapsulationdetails,
    YMAP_CHILD("stack",                    lvla_interfaces_encapsulationdetails_stack),
    YMAP_CHILD("service-instance-details", lvla_interfaces_encapsulationdetails_serviceinstancedetails),
    YMAP_CHILD("dot1ad-dot1q-stack",       lvla_interfaces_encapsulationdetails_dot1addot1qstack),
    YMAP_LEAF ("vlan-encapsulation",       lvla_interfaces_encapsulationdetails_vlanencapsulation),
    YMAP_LEAF ("tag",                      lvla_interfaces_encapsulationdetails_tag),
    YMAP_LEAF ("outer-tag",                lvla_interfaces_encapsulationdetails_outertag),
    YMAP_LEAF ("native-tag",               lvla_interfaces_encapsulationdetails_nativetag),
    YMAP_LEAF ("dot1ad-tag",               lvla_interfaces_encapsulationdetails_dot1adtag),
    YMAP_LEAF ("dot1ad-native-tag",        lvla_interfaces_encapsulationdetails_dot1adnativetag),
    YMAP_LEAF ("dot1ad-outer-tag",         lvla_interfaces_encapsulationdetails_dot1adoutertag));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_dot1qinformation_encapsulationdetails_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/stack
YMAP_CONTAINER(Operational, lvla_interfaces_encapsulationdetails_stack,
    YMAP_LEAF ("outer-tag",  lvla_interfaces_stack_outertag),
    YMAP_LEAF ("second-tag", lvla_interfaces_stack_secondtag));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_encapsulationdetails_stack_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details
YMAP_CONTAINER(Operational, lvla_interfaces_encapsulationdetails_serviceinstancedetails,
    YMAP_CHILD("local-traffic-stack",   lvla_interfaces_serviceinstancedetails_localtrafficstack),
    YMAP_LEAF ("payload-ethertype",     lvla_interfaces_serviceinstancedetails_payloadethertype),
    YMAP_LEAF ("tags-popped",           lvla_interfaces_serviceinstancedetails_tagspopped),
    YMAP_LEAF ("is-exact-match",        lvla_interfaces_serviceinstancedetails_isexactmatch),
    YMAP_LEAF ("is-native-vlan",        lvla_interfaces_serviceinstancedetails_isnativevlan),
    YMAP_LEAF ("is-native-preserving",  lvla_interfaces_serviceinstancedetails_isnativepreserving),
    YMAP_LEAF ("source-mac-match",      lvla_interfaces_serviceinstancedetails_sourcemacmatch),
    YMAP_LEAF ("destination-mac-match", lvla_interfaces_serviceinstancedetails_destinationmacmatch),
    YMAP_CHILD("tags-to-match",         lvla_interfaces_serviceinstancedetails_tagstomatch),
    YMAP_CHILD("pushe",                 lvla_interfaces_serviceinstancedetails_pushe));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_encapsulationdetails_serviceinstancedetails_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/local-traffic-stack
YMAP_CONTAINER(Operational, lvla_interfaces_serviceinstancedetails_localtrafficstack,
    YMAP_CHILD("local-traffic-tag", lvla_interfaces_localtrafficstack_localtraffictag));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_serviceinstancedetails_localtrafficstack_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/local-traffic-stack/local-traffic-tag
YMAP_LIST(Operational, lvla_interfaces_localtrafficstack_localtraffictag, "/interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/local-traffic-stack/local-traffic-tag",
    YMAP_LEAF ("ethertype", lvla_interfaces_localtraffictag_ethertype),
    YMAP_LEAF ("vlan-id",   lvla_interfaces_localtraffictag_vlanid));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_localtrafficstack_localtraffictag_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/tags-to-match
YMAP_LIST(Operational, lvla_interfaces_serviceinstancedetails_tagstomatch, "/interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/tags-to-match",
    YMAP_LEAF ("ethertype",  lvla_interfaces_tagstomatch_ethertype),
    YMAP_LEAF ("priority",   lvla_interfaces_tagstomatch_priority),
    YMAP_CHILD("vlan-range", lvla_interfaces_tagstomatch_vlanrange));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_serviceinstancedetails_tagstomatch_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/tags-to-match/vlan-range
YMAP_LIST(Operational, lvla_interfaces_tagstomatch_vlanrange, "/interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/tags-to-match/vlan-range",
    YMAP_LEAF ("vlan-id-low",  lvla_interfaces_vlanrange_vlanidlow),
    YMAP_LEAF ("vlan-id-high", lvla_interfaces_vlanrange_vlanidhigh));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_tagstomatch_vlanrange_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/pushe
YMAP_LIST(Operational, lvla_interfaces_serviceinstancedetails_pushe, "/interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/pushe",
    YMAP_LEAF ("ethertype", lvla_interfaces_pushe_ethertype),
    YMAP_LEAF ("vlan-id",   lvla_interfaces_pushe_vlanid));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_serviceinstancedetails_pushe_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/dot1ad-dot1q-stack
YMAP_CONTAINER(Operational, lvla_interfaces_encapsulationdetails_dot1addot1qstack,
    YMAP_LEAF ("outer-tag",  lvla_interfaces_dot1addot1qstack_outertag),
    YMAP_LEAF ("second-tag", lvla_interfaces_dot1addot1qstack_secondtag));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_encapsulationdetails_dot1addot1qstack_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/ppp-information
YMAP_CONTAINER(Operational, lvla_interfaces_encapsulationinformation_pppinformation,
    YMAP_LEAF ("lcp-state",            lvla_interfaces_pppinformation_lcpstate),
    YMAP_LEAF ("is-loopback-detected", lvla_interfaces_pppinformation_isloopbackdetected),
    YMAP_LEAF ("keepalive-period",     lvla_interfaces_pppinformation_keepaliveperiod),
    YMAP_LEAF ("is-mp-bundle-member",  lvla_interfaces_pppinformation_ismpbundlemember),
    YMAP_LEAF ("is-multilink-open",    lvla_interfaces_pppinformation_ismultilinkopen),
    YMAP_CHILD("ncp-info-array",       lvla_interfaces_pppinformation_ncpinfoarray));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_encapsulationinformation_pppinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/ppp-information/ncp-info-array
YMAP_LIST(Operational, lvla_interfaces_pppinformation_ncpinfoarray, "/interfaces/interface-nq/interface/encapsulation-information/ppp-information/ncp-info-array",
    YMAP_LEAF ("ncp-state",      lvla_interfaces_ncpinfoarray_ncpstate),
    YMAP_LEAF ("ncp-identifier", lvla_interfaces_ncpinfoarray_ncpidentifier));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_pppinformation_ncpinfoarray_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information
YMAP_CONTAINER(Operational, lvla_interfaces_interface_interfacetypeinformation,
    YMAP_CHILD("srp-information",                 lvla_interfaces_interfacetypeinformation_srpinformation),
    YMAP_CHILD("tunnel-information",              lvla_interfaces_interfacetypeinformation_tunnelinformation),
    YMAP_CHILD("bundle-information",              lvla_interfaces_interfacetypeinformation_bundleinformation),
    YMAP_CHILD("serial-information",              lvla_interfaces_interfacetypeinformation_serialinformation),
    YMAP_CHILD("sonet-pos-information",           lvla_interfaces_interfacetypeinformation_sonetposinformation),
    YMAP_CHILD("tunnel-gre-information",          lvla_interfaces_interfacetypeinformation_tunnelgreinformation),
    YMAP_CHILD("pseudowire-head-end-information", lvla_interfaces_interfacetypeinformation_pseudowireheadendinformation),
    YMAP_CHILD("cem-information",                 lvla_interfaces_interfacetypeinformation_ceminformation),
    YMAP_CHILD("gcc-information",                 lvla_interfaces_interfacetypeinformation_gccinformation),
    YMAP_LEAF ("interface-type-info",             lvla_interfaces_interfacetypeinformation_interfacetypeinfo));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_interfacetypeinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information
YMAP_CONTAINER(Operational, lvla_interfaces_interfacetypeinformation_srpinformation,
    YMAP_CHILD("srp-information", lvla_interfaces_srpinformation_srpinformation),
    YMAP_CHILD("srp-statistics",  lvla_interfaces_srpinformation_srpstatistics));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacetypeinformation_srpinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information
YMAP_CONTAINER(Operational, lvla_interfaces_srpinformation_srpinformation,
    YMAP_CHILD("ips-info",        lvla_interfaces_srpinformation_ipsinfo),
    YMAP_CHILD("topology-info",   lvla_interfaces_srpinformation_topologyinfo),
    YMAP_CHILD("srr-info",        lvla_interfaces_srpinformation_srrinfo),
    YMAP_CHILD("rate-limit-info", lvla_interfaces_srpinformation_ratelimitinfo));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srpinformation_srpinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info
YMAP_CONTAINER(Operational, lvla_interfaces_srpinformation_ipsinfo,
    YMAP_LEAF ("is-admin-down",     lvla_interfaces_ipsinfo_isadmindown),
    YMAP_CHILD("local-information", lvla_interfaces_ipsinfo_localinformation));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srpinformation_ipsinfo_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information
YMAP_LIST(Operational, lvla_interfaces_ipsinfo_localinformation, "/interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information",
    YMAP_CHILD("side-a",                    lvla_interfaces_localinformation_sidea),
    YMAP_CHILD("side-b",                    lvla_interfaces_localinformation_sideb),
    YMAP_LEAF ("mac-address",               lvla_interfaces_localinformation_macaddress),
    YMAP_LEAF ("is-inter-card-bus-enabled", lvla_interfaces_localinformation_isintercardbusenabled),
    YMAP_LEAF ("wtr-timer-period",          lvla_interfaces_localinformation_wtrtimerperiod));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_ipsinfo_localinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information/side-a
YMAP_CONTAINER(Operational, lvla_interfaces_localinformation_sidea,
    YMAP_LEAF ("mac-address",               lvla_interfaces_sidea_macaddress),
    YMAP_LEAF ("wrap-state",                lvla_interfaces_sidea_wrapstate),
    YMAP_LEAF ("packet-sent-timer",         lvla_interfaces_sidea_packetsenttimer),
    YMAP_LEAF ("send-timer-time-remaining", lvla_interfaces_sidea_sendtimertimeremaining),
    YMAP_LEAF ("wtr-timer-remaining",       lvla_interfaces_sidea_wtrtimerremaining),
    YMAP_LEAF ("self-detected-request",     lvla_interfaces_sidea_selfdetectedrequest),
    YMAP_LEAF ("remote-request",            lvla_interfaces_sidea_remoterequest),
    YMAP_LEAF ("rx-neighbor-mac-address",   lvla_interfaces_sidea_rxneighbormacaddress),
    YMAP_LEAF ("rx-message-type",           lvla_interfaces_sidea_rxmessagetype),
    YMAP_LEAF ("rx-path-type",              lvla_interfaces_sidea_rxpathtype),
    YMAP_LEAF ("rx-ttl",                    lvla_interfaces_sidea_rxttl),
    YMAP_LEAF ("rx-packet-test",            lvla_interfaces_sidea_rxpackettest),
    YMAP_LEAF ("tx-neighbor-mac-address",   lvla_interfaces_sidea_txneighbormacaddress),
    YMAP_LEAF ("tx-message-type",           lvla_interfaces_sidea_txmessagetype),
    YMAP_LEAF ("tx-path-type",              lvla_interfaces_sidea_txpathtype),
    YMAP_LEAF ("tx-ttl",                    lvla_interfaces_sidea_txttl),
    YMAP_LEAF ("tx-packet-test",            lvla_interfaces_sidea_txpackettest),
    YMAP_LEAF ("delay-keep-alive-trigger",  lvla_interfaces_sidea_delaykeepalivetrigger),
    YMAP_CHILD("asserted-failure",          lvla_interfaces_sidea_assertedfailure));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_localinformation_sidea_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information/side-a/asserted-failure
YMAP_LIST(Operational, lvla_interfaces_sidea_assertedfailure, "/interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information/side-a/asserted-failure",
    YMAP_LEAF ("type",            lvla_interfaces_assertedfailure_type),
    YMAP_LEAF ("reported-state",  lvla_interfaces_assertedfailure_reportedstate),
    YMAP_LEAF ("debounced-state", lvla_interfaces_assertedfailure_debouncedstate),
    YMAP_LEAF ("current-state",   lvla_interfaces_assertedfailure_currentstate),
    YMAP_LEAF ("stable-time",     lvla_interfaces_assertedfailure_stabletime),
    YMAP_LEAF ("debounced-delay", lvla_interfaces_assertedfailure_debounceddelay));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_sidea_assertedfailure_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information/side-b
YMAP_CONTAINER(Operational, lvla_interfaces_localinformation_sideb,
    YMAP_LEAF ("mac-address",               lvla_interfaces_sideb_macaddress),
    YMAP_LEAF ("wrap-state",                lvla_interfaces_sideb_wrapstate),
    YMAP_LEAF ("packet-sent-timer",         lvla_interfaces_sideb_packetsenttimer),
    YMAP_LEAF ("send-timer-time-remaining", lvla_interfaces_sideb_sendtimertimeremaining),
    YMAP_LEAF ("wtr-timer-remaining",       lvla_interfaces_sideb_wtrtimerremaining),
    YMAP_LEAF ("self-detected-request",     lvla_interfaces_sideb_selfdetectedrequest),
    YMAP_LEAF ("remote-request",            lvla_interfaces_sideb_remoterequest),
    YMAP_LEAF ("rx-neighbor-mac-address",   lvla_interfaces_sideb_rxneighbormacaddress),
    YMAP_LEAF ("rx-message-type",           lvla_interfaces_sideb_rxmessagetype),
    YMAP_LEAF ("rx-path-type",              lvla_interfaces_sideb_rxpathtype),
    YMAP_LEAF ("rx-ttl",                    lvla_interfaces_sideb_rxttl),
    YMAP_LEAF ("rx-packet-test",            lvla_interfaces_sideb_rxpackettest),
    YMAP_LEAF ("tx-neighbor-mac-address",   lvla_interfaces_sideb_txneighbormacaddress),
    YMAP_LEAF ("tx-message-type",           lvla_interfaces_sideb_txmessagetype),
    YMAP_LEAF ("tx-path-type",              lvla_interfaces_sideb_txpathtype),
    YMAP_LEAF ("tx-ttl",                    lvla_interfaces_sideb_txttl),
    YMAP_LEAF ("tx-packet-test",            lvla_interfaces_sideb_txpackettest),
    YMAP_LEAF ("delay-keep-alive-trigger",  lvla_interfaces_sideb_delaykeepalivetrigger),
    YMAP_CHILD("asserted-failure",          lvla_interfaces_sideb_assertedfailure));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_localinformation_sideb_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information/side-b/asserted-failure
YMAP_LIST(Operational, lvla_interfaces_sideb_assertedfailure, "/interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information/side-b/asserted-failure",
    YMAP_LEAF ("type",            lvlb_interfaces_assertedfailure_type),
    YMAP_LEAF ("reported-state",  lvlb_interfaces_assertedfailure_reportedstate),
    YMAP_LEAF ("debounced-state", lvlb_interfaces_assertedfailure_debouncedstate),
    YMAP_LEAF ("current-state",   lvlb_interfaces_assertedfailure_currentstate),
    YMAP_LEAF ("stable-time",     lvlb_interfaces_assertedfailure_stabletime),
    YMAP_LEAF ("debounced-delay", lvlb_interfaces_assertedfailure_debounceddelay));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_sideb_assertedfailure_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/topology-info
YMAP_CONTAINER(Operational, lvla_interfaces_srpinformation_topologyinfo,
    YMAP_LEAF ("is-admin-down",     lvla_interfaces_topologyinfo_isadmindown),
    YMAP_CHILD("local-information", lvla_interfaces_topologyinfo_localinformation));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srpinformation_topologyinfo_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/topology-info/local-information
YMAP_LIST(Operational, lvla_interfaces_topologyinfo_localinformation, "/interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/topology-info/local-information",
    YMAP_LEAF ("topology-timer",                           lvla_interfaces_localinformation_topologytimer),
    YMAP_LEAF ("next-topology-packet-delay",               lvla_interfaces_localinformation_nexttopologypacketdelay),
    YMAP_LEAF ("time-since-last-topology-packet-received", lvla_interfaces_localinformation_timesincelasttopologypacketreceived),
    YMAP_LEAF ("time-since-last-topology-change",          lvla_interfaces_localinformation_timesincelasttopologychange),
    YMAP_LEAF ("number-of-nodes-on-ring",                  lvla_interfaces_localinformation_numberofnodesonring),
    YMAP_CHILD("ring-node",                                lvla_interfaces_localinformation_ringnode));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_topologyinfo_localinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/topology-info/local-information/ring-node
YMAP_LIST(Operational, lvla_interfaces_localinformation_ringnode, "/interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/topology-info/local-information/ring-node",
    YMAP_LEAF ("hop-count",        lvla_interfaces_ringnode_hopcount),
    YMAP_LEAF ("mac-address",      lvla_interfaces_ringnode_macaddress),
    YMAP_LEAF ("ipv4-address",     lvla_interfaces_ringnode_ipv4address),
    YMAP_LEAF ("is-wrapped",       lvla_interfaces_ringnode_iswrapped),
    YMAP_LEAF ("is-srr-supported", lvla_interfaces_ringnode_issrrsupported),
    YMAP_LEAF ("node-name",        lvla_interfaces_ringnode_nodename));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_localinformation_ringnode_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info
YMAP_CONTAINER(Operational, lvla_interfaces_srpinformation_srrinfo,
    YMAP_LEAF ("is-admin-down",     lvla_interfaces_srrinfo_isadmindown),
    YMAP_LEAF ("is-srr-enabled",    lvla_interfaces_srrinfo_issrrenabled),
    YMAP_CHILD("srr-detailed-info", lvla_interfaces_srrinfo_srrdetailedinfo));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srpinformation_srrinfo_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info/srr-detailed-info
YMAP_LIST(Operational, lvla_interfaces_srrinfo_srrdetailedinfo, "/interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info/srr-detailed-info",
    YMAP_LEAF ("version-number",                  lvla_interfaces_srrdetailedinfo_versionnumber),
    YMAP_LEAF ("is-wrong-version-received",       lvla_interfaces_srrdetailedinfo_iswrongversionreceived),
    YMAP_LEAF ("last-wrong-version-receive-time", lvla_interfaces_srrdetailedinfo_lastwrongversionreceivetime),
    YMAP_LEAF ("mac-address",                     lvla_interfaces_srrdetailedinfo_macaddress),
    YMAP_LEAF ("node-state",                      lvla_interfaces_srrdetailedinfo_nodestate),
    YMAP_LEAF ("is-outer-ring-in-use",            lvla_interfaces_srrdetailedinfo_isouterringinuse),
    YMAP_LEAF ("is-inner-ring-in-use",            lvla_interfaces_srrdetailedinfo_isinnerringinuse),
    YMAP_LEAF ("is-announce",                     lvla_interfaces_srrdetailedinfo_isannounce),
    YMAP_LEAF ("outer-fail-type",                 lvla_interfaces_srrdetailedinfo_outerfailtype),
    YMAP_LEAF ("inner-fail-type",                 lvla_interfaces_srrdetailedinfo_innerfailtype),
    YMAP_LEAF ("packet-send-timer",               lvla_interfaces_srrdetailedinfo_packetsendtimer),
    YMAP_LEAF ("next-srr-packet-send-time",       lvla_interfaces_srrdetailedinfo_nextsrrpacketsendtime),
    YMAP_LEAF ("single-ring-bw",                  lvla_interfaces_srrdetailedinfo_singleringbw),
    YMAP_LEAF ("wtr-time",                        lvla_interfaces_srrdetailedinfo_wtrtime),
    YMAP_LEAF ("wtr-timer-remaining-outer-ring",  lvla_interfaces_srrdetailedinfo_wtrtimerremainingouterring),
    YMAP_LEAF ("wtr-timer-remaining-inner-ring",  lvla_interfaces_srrdetailedinfo_wtrtimerremaininginnerring),
    YMAP_CHILD("nodes-on-ring",                   lvla_interfaces_srrdetailedinfo_nodesonring),
    YMAP_CHILD("nodes-not-on-ring",               lvla_interfaces_srrdetailedinfo_nodesnotonring));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srrinfo_srrdetailedinfo_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info/srr-detailed-info/nodes-on-ring
YMAP_LIST(Operational, lvla_interfaces_srrdetailedinfo_nodesonring, "/interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info/srr-detailed-info/nodes-on-ring",
    YMAP_LEAF ("node-name",                   lvla_interfaces_nodesonring_nodename),
    YMAP_LEAF ("srr-entry-exits",             lvla_interfaces_nodesonring_srrentryexits),
    YMAP_LEAF ("mac-address",                 lvla_interfaces_nodesonring_macaddress),
    YMAP_LEAF ("outer-failure",               lvla_interfaces_nodesonring_outerfailure),
    YMAP_LEAF ("inner-failure",               lvla_interfaces_nodesonring_innerfailure),
    YMAP_LEAF ("is-last-announce-received",   lvla_interfaces_nodesonring_islastannouncereceived),
    YMAP_LEAF ("last-announce-received-time", lvla_interfaces_nodesonring_lastannouncereceivedtime));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srrdetailedinfo_nodesonring_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info/srr-detailed-info/nodes-not-on-ring
YMAP_LIST(Operational, lvla_interfaces_srrdetailedinfo_nodesnotonring, "/interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info/srr-detailed-info/nodes-not-on-ring",
    YMAP_LEAF ("node-name",                   lvla_interfaces_nodesnotonring_nodename),
    YMAP_LEAF ("srr-entry-exits",             lvla_interfaces_nodesnotonring_srrentryexits),
    YMAP_LEAF ("mac-address",                 lvla_interfaces_nodesnotonring_macaddress),
    YMAP_LEAF ("outer-failure",               lvla_interfaces_nodesnotonring_outerfailure),
    YMAP_LEAF ("inner-failure",               lvla_interfaces_nodesnotonring_innerfailure),
    YMAP_LEAF ("is-last-announce-received",   lvla_interfaces_nodesnotonring_islastannouncereceived),
    YMAP_LEAF ("last-announce-received-time", lvla_interfaces_nodesnotonring_lastannouncereceivedtime));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srrdetailedinfo_nodesnotonring_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/rate-limit-info
YMAP_CONTAINER(Operational, lvla_interfaces_srpinformation_ratelimitinfo,
    YMAP_LEAF ("is-admin-down",            lvla_interfaces_ratelimitinfo_isadmindown),
    YMAP_CHILD("rate-limit-detailed-info", lvla_interfaces_ratelimitinfo_ratelimitdetailedinfo));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srpinformation_ratelimitinfo_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/rate-limit-info/rate-limit-detailed-info
YMAP_LIST(Operational, lvla_interfaces_ratelimitinfo_ratelimitdetailedinfo, "/interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/rate-limit-info/rate-limit-detailed-info",
    YMAP_LEAF ("min-priority-value", lvla_interfaces_ratelimitdetailedinfo_minpriorityvalue));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_ratelimitinfo_ratelimitdetailedinfo_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics
YMAP_CONTAINER(Operational, lvla_interfaces_srpinformation_srpstatistics,
    YMAP_CHILD("side-a-data-rate",   lvla_interfaces_srpstatistics_sideadatarate),
    YMAP_CHILD("side-b-data-rate",   lvla_interfaces_srpstatistics_sidebdatarate),
    YMAP_CHILD("side-a-errors",      lvla_interfaces_srpstatistics_sideaerrors),
    YMAP_CHILD("side-b-errors",      lvla_interfaces_srpstatistics_sideberrors),
    YMAP_LEAF ("data-rate-interval", lvla_interfaces_srpstatistics_datarateinterval));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srpinformation_srpstatistics_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics/side-a-data-rate
YMAP_CONTAINER(Operational, lvla_interfaces_srpstatistics_sideadatarate,
    YMAP_LEAF ("bit-rate-sent",        lvla_interfaces_sideadatarate_bitratesent),
    YMAP_LEAF ("packet-rate-sent",     lvla_interfaces_sideadatarate_packetratesent),
    YMAP_LEAF ("bit-rate-received",    lvla_interfaces_sideadatarate_bitratereceived),
    YMAP_LEAF ("packet-rate-received", lvla_interfaces_sideadatarate_packetratereceived));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srpstatistics_sideadatarate_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics/side-b-data-rate
YMAP_CONTAINER(Operational, lvla_interfaces_srpstatistics_sidebdatarate,
    YMAP_LEAF ("bit-rate-sent",        lvla_interfaces_sidebdatarate_bitratesent),
    YMAP_LEAF ("packet-rate-sent",     lvla_interfaces_sidebdatarate_packetratesent),
    YMAP_LEAF ("bit-rate-received",    lvla_interfaces_sidebdatarate_bitratereceived),
    YMAP_LEAF ("packet-rate-received", lvla_interfaces_sidebdatarate_packetratereceived));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srpstatistics_sidebdatarate_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics/side-a-errors
YMAP_CONTAINER(Operational, lvla_interfaces_srpstatistics_sideaerrors,
    YMAP_LEAF ("error-packets-received",             lvla_interfaces_sideaerrors_errorpacketsreceived),
    YMAP_LEAF ("crc-errors",                         lvla_interfaces_sideaerrors_crcerrors),
    YMAP_LEAF ("input-insufficient-resource-events", lvla_interfaces_sideaerrors_inputinsufficientresourceevents),
    YMAP_LEAF ("mac-aborts-received",                lvla_interfaces_sideaerrors_macabortsreceived),
    YMAP_LEAF ("mac-runt-packets-received",          lvla_interfaces_sideaerrors_macruntpacketsreceived),
    YMAP_LEAF ("mac-giant-packets-received",         lvla_interfaces_sideaerrors_macgiantpacketsreceived),
    YMAP_LEAF ("framer-runt-packets-received",       lvla_interfaces_sideaerrors_framerruntpacketsreceived),
    YMAP_LEAF ("framer-giant-packets-received",      lvla_interfaces_sideaerrors_framergiantpacketsreceived),
    YMAP_LEAF ("framer-aborts-received",             lvla_interfaces_sideaerrors_framerabortsreceived));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srpstatistics_sideaerrors_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics/side-b-errors
YMAP_CONTAINER(Operational, lvla_interfaces_srpstatistics_sideberrors,
    YMAP_LEAF ("error-packets-received",             lvla_interfaces_sideberrors_errorpacketsreceived),
    YMAP_LEAF ("crc-errors",                         lvla_interfaces_sideberrors_crcerrors),
    YMAP_LEAF ("input-insufficient-resource-events", lvla_interfaces_sideberrors_inputinsufficientresourceevents),
    YMAP_LEAF ("mac-aborts-received",                lvla_interfaces_sideberrors_macabortsreceived),
    YMAP_LEAF ("mac-runt-packets-received",          lvla_interfaces_sideberrors_macruntpacketsreceived),
    YMAP_LEAF ("mac-giant-packets-received",         lvla_interfaces_sideberrors_macgiantpacketsreceived),
    YMAP_LEAF ("framer-runt-packets-received",       lvla_interfaces_sideberrors_framerruntpacketsreceived),
    YMAP_LEAF ("framer-giant-packets-received",      lvla_interfaces_sideberrors_framergiantpacketsreceived),
    YMAP_LEAF ("framer-aborts-received",             lvla_interfaces_sideberrors_framerabortsreceived));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_srpstatistics_sideberrors_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/tunnel-information
YMAP_CONTAINER(Operational, lvla_interfaces_interfacetypeinformation_tunnelinformation,
    YMAP_LEAF ("source-name",              lvla_interfaces_tunnelinformation_sourcename),
    YMAP_LEAF ("source-ipv4-address",      lvla_interfaces_tunnelinformation_sourceipv4address),
    YMAP_LEAF ("destination-ipv4-address", lvla_interfaces_tunnelinformation_destinationipv4address),
    YMAP_LEAF ("tunnel-type",              lvla_interfaces_tunnelinformation_tunneltype),
    YMAP_LEAF ("key",                      lvla_interfaces_tunnelinformation_key),
    YMAP_LEAF ("ttl",                      lvla_interfaces_tunnelinformation_ttl));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacetypeinformation_tunnelinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information
YMAP_CONTAINER(Operational, lvla_interfaces_interfacetypeinformation_bundleinformation,
    YMAP_CHILD("member", lvla_interfaces_bundleinformation_member));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacetypeinformation_bundleinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information/member
YMAP_LIST(Operational, lvla_interfaces_bundleinformation_member, "/interfaces/interface-nq/interface/interface-type-information/bundle-information/member",
    YMAP_CHILD("member-mux-data",    lvla_interfaces_member_membermuxdata),
    YMAP_CHILD("mac-address",        lvla_interfaces_member_macaddress),
    YMAP_LEAF ("bandwidth",          lvla_interfaces_member_bandwidth),
    YMAP_LEAF ("port-priority",      lvla_interfaces_member_portpriority),
    YMAP_LEAF ("port-number",        lvla_interfaces_member_portnumber),
    YMAP_LEAF ("underlying-link-id", lvla_interfaces_member_underlyinglinkid),
    YMAP_LEAF ("link-order-number",  lvla_interfaces_member_linkordernumber),
    YMAP_LEAF ("interface-name",     lvla_interfaces_member_interfacename),
    YMAP_LEAF ("iccp-node",          lvla_interfaces_member_iccpnode),
    YMAP_LEAF ("member-type",        lvla_interfaces_member_membertype),
    YMAP_LEAF ("member-name",        lvla_interfaces_member_membername));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_bundleinformation_member_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information/member/member-mux-data
YMAP_CONTAINER(Operational, lvla_interfaces_member_membermuxdata,
    YMAP_CHILD("member-mux-state-reason-data", lvla_interfaces_membermuxdata_membermuxstatereasondata),
    YMAP_LEAF ("mux-state",                    lvla_interfaces_membermuxdata_muxstate),
    YMAP_LEAF ("error",                        lvla_interfaces_membermuxdata_error),
    YMAP_LEAF ("member-mux-state-reason",      lvla_interfaces_membermuxdata_membermuxstatereason),
    YMAP_LEAF ("member-state",                 lvla_interfaces_membermuxdata_memberstate),
    YMAP_LEAF ("mux-state-reason",             lvla_interfaces_membermuxdata_muxstatereason));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_member_membermuxdata_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information/member/member-mux-data/member-mux-state-reason-data
YMAP_CONTAINER(Operational, lvla_interfaces_membermuxdata_membermuxstatereasondata,
    YMAP_LEAF ("reason-type", lvla_interfaces_membermuxstatereasondata_reasontype),
    YMAP_LEAF ("severity",    lvla_interfaces_membermuxstatereasondata_severity));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_membermuxdata_membermuxstatereasondata_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information/member/mac-address
YMAP_CONTAINER(Operational, lvla_interfaces_member_macaddress,
    YMAP_LEAF ("address", lvlb_interfaces_macaddress_address));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_member_macaddress_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/serial-information
YMAP_CONTAINER(Operational, lvla_interfaces_interfacetypeinformation_serialinformation,
    YMAP_LEAF ("timeslots", lvla_interfaces_serialinformation_timeslots));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacetypeinformation_serialinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/sonet-pos-information
YMAP_CONTAINER(Operational, lvla_interfaces_interfacetypeinformation_sonetposinformation,
    YMAP_LEAF ("aps-state", lvla_interfaces_sonetposinformation_apsstate));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacetypeinformation_sonetposinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/tunnel-gre-information
YMAP_CONTAINER(Operational, lvla_interfaces_interfacetypeinformation_tunnelgreinformation,
    YMAP_CHILD("source-ip-address",       lvla_interfaces_tunnelgreinformation_sourceipaddress),
    YMAP_CHILD("destination-ip-address",  lvla_interfaces_tunnelgreinformation_destinationipaddress),
    YMAP_LEAF ("source-name",             lvla_interfaces_tunnelgreinformation_sourcename),
    YMAP_LEAF ("tunnel-tos",              lvla_interfaces_tunnelgreinformation_tunneltos),
    YMAP_LEAF ("tunnel-ttl",              lvla_interfaces_tunnelgreinformation_tunnelttl),
    YMAP_LEAF ("key",                     lvla_interfaces_tunnelgreinformation_key),
    YMAP_LEAF ("keepalive-period",        lvla_interfaces_tunnelgreinformation_keepaliveperiod),
    YMAP_LEAF ("keepalive-maximum-retry", lvla_interfaces_tunnelgreinformation_keepalivemaximumretry),
    YMAP_LEAF ("tunnel-mode",             lvla_interfaces_tunnelgreinformation_tunnelmode),
    YMAP_LEAF ("keepalive-state",         lvla_interfaces_tunnelgreinformation_keepalivestate),
    YMAP_LEAF ("df-bit-state",            lvla_interfaces_tunnelgreinformation_dfbitstate),
    YMAP_LEAF ("key-bit-state",           lvla_interfaces_tunnelgreinformation_keybitstate));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacetypeinformation_tunnelgreinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/tunnel-gre-information/source-ip-address
YMAP_CONTAINER(Operational, lvla_interfaces_tunnelgreinformation_sourceipaddress,
    YMAP_LEAF ("afi",  lvla_interfaces_sourceipaddress_afi),
    YMAP_LEAF ("ipv4", lvla_interfaces_sourceipaddress_ipv4),
    YMAP_LEAF ("ipv6", lvla_interfaces_sourceipaddress_ipv6));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_tunnelgreinformation_sourceipaddress_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/tunnel-gre-information/destination-ip-address
YMAP_CONTAINER(Operational, lvla_interfaces_tunnelgreinformation_destinationipaddress,
    YMAP_LEAF ("afi",  lvla_interfaces_destinationipaddress_afi),
    YMAP_LEAF ("ipv4", lvla_interfaces_destinationipaddress_ipv4),
    YMAP_LEAF ("ipv6", lvla_interfaces_destinationipaddress_ipv6));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_tunnelgreinformation_destinationipaddress_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/pseudowire-head-end-information
YMAP_CONTAINER(Operational, lvla_interfaces_interfacetypeinformation_pseudowireheadendinformation,
    YMAP_LEAF ("interface-list-name", lvla_interfaces_pseudowireheadendinformation_interfacelistname),
    YMAP_LEAF ("l2-overhead",         lvla_interfaces_pseudowireheadendinformation_l2overhead),
    YMAP_LEAF ("internal-label",      lvla_interfaces_pseudowireheadendinformation_internallabel));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacetypeinformation_pseudowireheadendinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/cem-information
YMAP_CONTAINER(Operational, lvla_interfaces_interfacetypeinformation_ceminformation,
    YMAP_LEAF ("timeslots",       lvla_interfaces_ceminformation_timeslots),
    YMAP_LEAF ("payload",         lvla_interfaces_ceminformation_payload),
    YMAP_LEAF ("dejitter-buffer", lvla_interfaces_ceminformation_dejitterbuffer),
    YMAP_LEAF ("framing",         lvla_interfaces_ceminformation_framing));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacetypeinformation_ceminformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/gcc-information
YMAP_CONTAINER(Operational, lvla_interfaces_interfacetypeinformation_gccinformation,
    YMAP_LEAF ("derived-mode", lvla_interfaces_gccinformation_derivedmode),
    YMAP_LEAF ("sec-state",    lvla_interfaces_gccinformation_secstate));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacetypeinformation_gccinformation_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/data-rates
YMAP_CONTAINER(Operational, lvla_interfaces_interface_datarates,
    YMAP_LEAF ("input-data-rate",         lvla_interfaces_datarates_inputdatarate),
    YMAP_LEAF ("input-packet-rate",       lvla_interfaces_datarates_inputpacketrate),
    YMAP_LEAF ("output-data-rate",        lvla_interfaces_datarates_outputdatarate),
    YMAP_LEAF ("output-packet-rate",      lvla_interfaces_datarates_outputpacketrate),
    YMAP_LEAF ("peak-input-data-rate",    lvla_interfaces_datarates_peakinputdatarate),
    YMAP_LEAF ("peak-input-packet-rate",  lvla_interfaces_datarates_peakinputpacketrate),
    YMAP_LEAF ("peak-output-data-rate",   lvla_interfaces_datarates_peakoutputdatarate),
    YMAP_LEAF ("peak-output-packet-rate", lvla_interfaces_datarates_peakoutputpacketrate),
    YMAP_LEAF ("bandwidth",               lvla_interfaces_datarates_bandwidth),
    YMAP_LEAF ("load-interval",           lvla_interfaces_datarates_loadinterval),
    YMAP_LEAF ("output-load",             lvla_interfaces_datarates_outputload),
    YMAP_LEAF ("input-load",              lvla_interfaces_datarates_inputload),
    YMAP_LEAF ("reliability",             lvla_interfaces_datarates_reliability));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_datarates_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-statistics
YMAP_CONTAINER(Operational, lvla_interfaces_interface_interfacestatistics,
    YMAP_CHILD("full-interface-stats",  lvla_interfaces_interfacestatistics_fullinterfacestats),
    YMAP_CHILD("basic-interface-stats", lvla_interfaces_interfacestatistics_basicinterfacestats),
    YMAP_LEAF ("stats-type",            lvla_interfaces_interfacestatistics_statstype));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_interfacestatistics_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-statistics/full-interface-stats
YMAP_CONTAINER(Operational, lvla_interfaces_interfacestatistics_fullinterfacestats,
    YMAP_LEAF ("packets-received",                  lvla_interfaces_fullinterfacestats_packetsreceived),
    YMAP_LEAF ("bytes-received",                    lvla_interfaces_fullinterfacestats_bytesreceived),
    YMAP_LEAF ("packets-sent",                      lvla_interfaces_fullinterfacestats_packetssent),
    YMAP_LEAF ("bytes-sent",                        lvla_interfaces_fullinterfacestats_bytessent),
    YMAP_LEAF ("multicast-packets-received",        lvla_interfaces_fullinterfacestats_multicastpacketsreceived),
    YMAP_LEAF ("broadcast-packets-received",        lvla_interfaces_fullinterfacestats_broadcastpacketsreceived),
    YMAP_LEAF ("multicast-packets-sent",            lvla_interfaces_fullinterfacestats_multicastpacketssent),
    YMAP_LEAF ("broadcast-packets-sent",            lvla_interfaces_fullinterfacestats_broadcastpacketssent),
    YMAP_LEAF ("output-drops",                      lvla_interfaces_fullinterfacestats_outputdrops),
    YMAP_LEAF ("output-queue-drops",                lvla_interfaces_fullinterfacestats_outputqueuedrops),
    YMAP_LEAF ("input-drops",                       lvla_interfaces_fullinterfacestats_inputdrops),
    YMAP_LEAF ("input-queue-drops",                 lvla_interfaces_fullinterfacestats_inputqueuedrops),
    YMAP_LEAF ("runt-packets-received",             lvla_interfaces_fullinterfacestats_runtpacketsreceived),
    YMAP_LEAF ("giant-packets-received",            lvla_interfaces_fullinterfacestats_giantpacketsreceived),
    YMAP_LEAF ("throttled-packets-received",        lvla_interfaces_fullinterfacestats_throttledpacketsreceived),
    YMAP_LEAF ("parity-packets-received",           lvla_interfaces_fullinterfacestats_paritypacketsreceived),
    YMAP_LEAF ("unknown-protocol-packets-received", lvla_interfaces_fullinterfacestats_unknownprotocolpacketsreceived),
    YMAP_LEAF ("input-errors",                      lvla_interfaces_fullinterfacestats_inputerrors),
    YMAP_LEAF ("crc-errors",                        lvla_interfaces_fullinterfacestats_crcerrors),
    YMAP_LEAF ("input-overruns",                    lvla_interfaces_fullinterfacestats_inputoverruns),
    YMAP_LEAF ("framing-errors-received",           lvla_interfaces_fullinterfacestats_framingerrorsreceived),
    YMAP_LEAF ("input-ignored-packets",             lvla_interfaces_fullinterfacestats_inputignoredpackets),
    YMAP_LEAF ("input-aborts",                      lvla_interfaces_fullinterfacestats_inputaborts),
    YMAP_LEAF ("output-errors",                     lvla_interfaces_fullinterfacestats_outputerrors),
    YMAP_LEAF ("output-underruns",                  lvla_interfaces_fullinterfacestats_outputunderruns),
    YMAP_LEAF ("output-buffer-failures",            lvla_interfaces_fullinterfacestats_outputbufferfailures),
    YMAP_LEAF ("output-buffers-swapped-out",        lvla_interfaces_fullinterfacestats_outputbuffersswappedout),
    YMAP_LEAF ("applique",                          lvla_interfaces_fullinterfacestats_applique),
    YMAP_LEAF ("resets",                            lvla_interfaces_fullinterfacestats_resets),
    YMAP_LEAF ("carrier-transitions",               lvla_interfaces_fullinterfacestats_carriertransitions),
    YMAP_LEAF ("availability-flag",                 lvla_interfaces_fullinterfacestats_availabilityflag),
    YMAP_LEAF ("last-data-time",                    lvla_interfaces_fullinterfacestats_lastdatatime),
    YMAP_LEAF ("seconds-since-last-clear-counters", lvla_interfaces_fullinterfacestats_secondssincelastclearcounters),
    YMAP_LEAF ("last-discontinuity-time",           lvla_interfaces_fullinterfacestats_lastdiscontinuitytime),
    YMAP_LEAF ("seconds-since-packet-received",     lvla_interfaces_fullinterfacestats_secondssincepacketreceived),
    YMAP_LEAF ("seconds-since-packet-sent",         lvla_interfaces_fullinterfacestats_secondssincepacketsent));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacestatistics_fullinterfacestats_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/interface-statistics/basic-interface-stats
YMAP_CONTAINER(Operational, lvla_interfaces_interfacestatistics_basicinterfacestats,
    YMAP_LEAF ("packets-received",                  lvla_interfaces_basicinterfacestats_packetsreceived),
    YMAP_LEAF ("bytes-received",                    lvla_interfaces_basicinterfacestats_bytesreceived),
    YMAP_LEAF ("packets-sent",                      lvla_interfaces_basicinterfacestats_packetssent),
    YMAP_LEAF ("bytes-sent",                        lvla_interfaces_basicinterfacestats_bytessent),
    YMAP_LEAF ("input-drops",                       lvla_interfaces_basicinterfacestats_inputdrops),
    YMAP_LEAF ("input-queue-drops",                 lvla_interfaces_basicinterfacestats_inputqueuedrops),
    YMAP_LEAF ("input-errors",                      lvla_interfaces_basicinterfacestats_inputerrors),
    YMAP_LEAF ("unknown-protocol-packets-received", lvla_interfaces_basicinterfacestats_unknownprotocolpacketsreceived),
    YMAP_LEAF ("output-drops",                      lvla_interfaces_basicinterfacestats_outputdrops),
    YMAP_LEAF ("output-queue-drops",                lvla_interfaces_basicinterfacestats_outputqueuedrops),
    YMAP_LEAF ("output-errors",                     lvla_interfaces_basicinterfacestats_outputerrors),
    YMAP_LEAF ("last-data-time",                    lvla_interfaces_basicinterfacestats_lastdatatime),
    YMAP_LEAF ("seconds-since-last-clear-counters", lvla_interfaces_basicinterfacestats_secondssincelastclearcounters),
    YMAP_LEAF ("last-discontinuity-time",           lvla_interfaces_basicinterfacestats_lastdiscontinuitytime),
    YMAP_LEAF ("seconds-since-packet-received",     lvla_interfaces_basicinterfacestats_secondssincepacketreceived),
    YMAP_LEAF ("seconds-since-packet-sent",         lvla_interfaces_basicinterfacestats_secondssincepacketsent));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacestatistics_basicinterfacestats_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics
YMAP_CONTAINER(Operational, lvla_interfaces_interface_l2interfacestatistics,
    YMAP_CHILD("stats-id",      lvla_interfaces_l2interfacestatistics_statsid),
    YMAP_LEAF ("stats-type",    lvla_interfaces_l2interfacestatistics_statstype),
    YMAP_LEAF ("contents",      lvla_interfaces_l2interfacestatistics_contents),
    YMAP_CHILD("block-array",   lvla_interfaces_l2interfacestatistics_blockarray),
    YMAP_CHILD("element-array", lvla_interfaces_l2interfacestatistics_elementarray));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_l2interfacestatistics_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics/stats-id
YMAP_CONTAINER(Operational, lvla_interfaces_l2interfacestatistics_statsid,
    YMAP_LEAF ("id-type",          lvla_interfaces_statsid_idtype),
    YMAP_LEAF ("unused",           lvla_interfaces_statsid_unused),
    YMAP_LEAF ("interface-handle", lvla_interfaces_statsid_interfacehandle),
    YMAP_LEAF ("node-id",          lvla_interfaces_statsid_nodeid),
    YMAP_LEAF ("feature-id",       lvla_interfaces_statsid_featureid),
    YMAP_LEAF ("id",               lvla_interfaces_statsid_id));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_l2interfacestatistics_statsid_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics/block-array
YMAP_LIST(Operational, lvla_interfaces_l2interfacestatistics_blockarray, "/interfaces/interface-nq/interface/l2-interface-statistics/block-array",
    YMAP_LEAF ("type",  lvla_interfaces_blockarray_type),
    YMAP_LEAF ("count", lvla_interfaces_blockarray_count),
    YMAP_LEAF ("data",  lvla_interfaces_blockarray_data));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_l2interfacestatistics_blockarray_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics/element-array
YMAP_LIST(Operational, lvla_interfaces_l2interfacestatistics_elementarray, "/interfaces/interface-nq/interface/l2-interface-statistics/element-array",
    YMAP_LEAF ("key",         lvla_interfaces_elementarray_key),
    YMAP_CHILD("block-array", lvla_interfaces_elementarray_blockarray));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_l2interfacestatistics_elementarray_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics/element-array/block-array
YMAP_LIST(Operational, lvla_interfaces_elementarray_blockarray, "/interfaces/interface-nq/interface/l2-interface-statistics/element-array/block-array",
    YMAP_LEAF ("type",  lvlb_interfaces_blockarray_type),
    YMAP_LEAF ("count", lvlb_interfaces_blockarray_count),
    YMAP_LEAF ("data",  lvlb_interfaces_blockarray_data));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_elementarray_blockarray_parse_augments, EmptyHandler);

// /interfaces/interface-nq/interface/nv-optical
YMAP_CONTAINER(Operational, lvla_interfaces_interface_nvoptical,
    YMAP_LEAF ("controller", lvla_interfaces_nvoptical_controller));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interface_nvoptical_parse_augments, EmptyHandler);

// /interfaces/node-type-sets
YMAP_CONTAINER(Operational, lvla_interfaces_nodetypesets,
    YMAP_CHILD("node-type-set", lvla_interfaces_nodetypesets_nodetypeset));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_nodetypesets_parse_augments, EmptyHandler);

// /interfaces/node-type-sets/node-type-set
YMAP_LIST(Operational, lvla_interfaces_nodetypesets_nodetypeset, "/interfaces/node-type-sets/node-type-set",
    YMAP_LEAF ("node-name",         lvla_interfaces_nodetypeset_nodename),
    YMAP_LEAF ("type-set-name",     lvla_interfaces_nodetypeset_typesetname),
    YMAP_CHILD("interface-summary", lvla_interfaces_nodetypeset_interfacesummary));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_nodetypesets_nodetypeset_parse_augments, EmptyHandler);

// /interfaces/node-type-sets/node-type-set/interface-summary
YMAP_CONTAINER(Operational, lvla_interfaces_nodetypeset_interfacesummary,
    YMAP_CHILD("interface-counts", lvla_interfaces_interfacesummary_interfacecounts),
    YMAP_CHILD("interface-type",   lvla_interfaces_interfacesummary_interfacetype));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_nodetypeset_interfacesummary_parse_augments, EmptyHandler);

// /interfaces/node-type-sets/node-type-set/interface-summary/interface-counts
YMAP_CONTAINER(Operational, lvla_interfaces_interfacesummary_interfacecounts,
    YMAP_LEAF ("interface-count",            lvla_interfaces_interfacecounts_interfacecount),
    YMAP_LEAF ("up-interface-count",         lvla_interfaces_interfacecounts_upinterfacecount),
    YMAP_LEAF ("down-interface-count",       lvla_interfaces_interfacecounts_downinterfacecount),
    YMAP_LEAF ("admin-down-interface-count", lvla_interfaces_interfacecounts_admindowninterfacecount));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacesummary_interfacecounts_parse_augments, EmptyHandler);

// /interfaces/node-type-sets/node-type-set/interface-summary/interface-type
YMAP_LIST(Operational, lvla_interfaces_interfacesummary_interfacetype, "/interfaces/node-type-sets/node-type-set/interface-summary/interface-type",
    YMAP_CHILD("interface-counts",           lvla_interfaces_interfacetype_interfacecounts),
    YMAP_LEAF ("interface-type-name",        lvla_interfaces_interfacetype_interfacetypename),
    YMAP_LEAF ("interface-type-description", lvla_interfaces_interfacetype_interfacetypedescription));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacesummary_interfacetype_parse_augments, EmptyHandler);

// /interfaces/node-type-sets/node-type-set/interface-summary/interface-type/interface-counts
YMAP_CONTAINER(Operational, lvla_interfaces_interfacetype_interfacecounts,
    YMAP_LEAF ("interface-count",            lvlb_interfaces_interfacecounts_interfacecount),
    YMAP_LEAF ("up-interface-count",         lvlb_interfaces_interfacecounts_upinterfacecount),
    YMAP_LEAF ("down-interface-count",       lvlb_interfaces_interfacecounts_downinterfacecount),
    YMAP_LEAF ("admin-down-interface-count", lvlb_interfaces_interfacecounts_admindowninterfacecount));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacetype_interfacecounts_parse_augments, EmptyHandler);

// /interfaces/interface-briefs
YMAP_CONTAINER(Operational, lvla_interfaces_interfacebriefs,
    YMAP_CHILD("interface-brief", lvla_interfaces_interfacebriefs_interfacebrief));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacebriefs_parse_augments, EmptyHandler);

// /interfaces/interface-briefs/interface-brief
YMAP_LIST(Operational, lvla_interfaces_interfacebriefs_interfacebrief, "/interfaces/interface-briefs/interface-brief",
    YMAP_LEAF ("interface-name",             lvla_interfaces_interfacebrief_interfacename),
    YMAP_LEAF ("interface",                  lvla_interfaces_interfacebrief_interface),
    YMAP_LEAF ("parent-interface",           lvla_interfaces_interfacebrief_parentinterface),
    YMAP_LEAF ("type",                       lvla_interfaces_interfacebrief_type),
    YMAP_LEAF ("state",                      lvla_interfaces_interfacebrief_state),
    YMAP_LEAF ("actual-state",               lvla_interfaces_interfacebrief_actualstate),
    YMAP_LEAF ("line-state",                 lvla_interfaces_interfacebrief_linestate),
    YMAP_LEAF ("actual-line-state",          lvla_interfaces_interfacebrief_actuallinestate),
    YMAP_LEAF ("encapsulation",              lvla_interfaces_interfacebrief_encapsulation),
    YMAP_LEAF ("encapsulation-type-string",  lvla_interfaces_interfacebrief_encapsulationtypestring),
    YMAP_LEAF ("mtu",                        lvla_interfaces_interfacebrief_mtu),
    YMAP_LEAF ("sub-interface-mtu-overhead", lvla_interfaces_interfacebrief_subinterfacemtuoverhead),
    YMAP_LEAF ("l2-transport",               lvla_interfaces_interfacebrief_l2transport),
    YMAP_LEAF ("bandwidth",                  lvla_interfaces_interfacebrief_bandwidth));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacebriefs_interfacebrief_parse_augments, EmptyHandler);

// /interfaces/inventory-summary
YMAP_CONTAINER(Operational, lvla_interfaces_inventorysummary,
    YMAP_CHILD("interface-counts", lvla_interfaces_inventorysummary_interfacecounts),
    YMAP_CHILD("interface-type",   lvla_interfaces_inventorysummary_interfacetype));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_inventorysummary_parse_augments, EmptyHandler);

// /interfaces/inventory-summary/interface-counts
YMAP_CONTAINER(Operational, lvla_interfaces_inventorysummary_interfacecounts,
    YMAP_LEAF ("interface-count",            lvlc_interfaces_interfacecounts_interfacecount),
    YMAP_LEAF ("up-interface-count",         lvlc_interfaces_interfacecounts_upinterfacecount),
    YMAP_LEAF ("down-interface-count",       lvlc_interfaces_interfacecounts_downinterfacecount),
    YMAP_LEAF ("admin-down-interface-count", lvlc_interfaces_interfacecounts_admindowninterfacecount));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_inventorysummary_interfacecounts_parse_augments, EmptyHandler);

// /interfaces/inventory-summary/interface-type
YMAP_LIST(Operational, lvla_interfaces_inventorysummary_interfacetype, "/interfaces/inventory-summary/interface-type",
    YMAP_CHILD("interface-counts",           lvlb_interfaces_interfacetype_interfacecounts),
    YMAP_LEAF ("interface-type-name",        lvlb_interfaces_interfacetype_interfacetypename),
    YMAP_LEAF ("interface-type-description", lvlb_interfaces_interfacetype_interfacetypedescription));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_inventorysummary_interfacetype_parse_augments, EmptyHandler);

// /interfaces/inventory-summary/interface-type/interface-counts
YMAP_CONTAINER(Operational, lvlb_interfaces_interfacetype_interfacecounts,
    YMAP_LEAF ("interface-count",            lvld_interfaces_interfacecounts_interfacecount),
    YMAP_LEAF ("up-interface-count",         lvld_interfaces_interfacecounts_upinterfacecount),
    YMAP_LEAF ("down-interface-count",       lvld_interfaces_interfacecounts_downinterfacecount),
    YMAP_LEAF ("admin-down-interface-count", lvld_interfaces_interfacecounts_admindowninterfacecount));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvlb_interfaces_interfacetype_interfacecounts_parse_augments, EmptyHandler);

// /interfaces/interfaces
YMAP_CONTAINER(Operational, lvla_interfaces_interfaces,
    YMAP_CHILD("interface", lvla_interfaces_interfaces_interface));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfaces_parse_augments, EmptyHandler);

// /interfaces/interfaces/interface
YMAP_LIST(Operational, lvla_interfaces_interfaces_interface, "/interfaces/interfaces/interface",
    YMAP_LEAF ("interface-name", lvlb_interfaces_interface_interfacename),
    YMAP_LEAF ("interface",      lvla_interfaces_interface_interface),
    YMAP_LEAF ("state",          lvlb_interfaces_interface_state),
    YMAP_LEAF ("line-state",     lvlb_interfaces_interface_linestate),
    YMAP_LEAF ("description",    lvlb_interfaces_interface_description));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfaces_interface_parse_augments, EmptyHandler);

// /interfaces/interface-summary
YMAP_CONTAINER(Operational, lvla_interfaces_interfacesummary,
    YMAP_CHILD("interface-counts", lvlb_interfaces_interfacesummary_interfacecounts),
    YMAP_CHILD("interface-type",   lvlb_interfaces_interfacesummary_interfacetype));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces_interfacesummary_parse_augments, EmptyHandler);

// /interfaces/interface-summary/interface-counts
YMAP_CONTAINER(Operational, lvlb_interfaces_interfacesummary_interfacecounts,
    YMAP_LEAF ("interface-count",            lvle_interfaces_interfacecounts_interfacecount),
    YMAP_LEAF ("up-interface-count",         lvle_interfaces_interfacecounts_upinterfacecount),
    YMAP_LEAF ("down-interface-count",       lvle_interfaces_interfacecounts_downinterfacecount),
    YMAP_LEAF ("admin-down-interface-count", lvle_interfaces_interfacecounts_admindowninterfacecount));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvlb_interfaces_interfacesummary_interfacecounts_parse_augments, EmptyHandler);

// /interfaces/interface-summary/interface-type
YMAP_LIST(Operational, lvlb_interfaces_interfacesummary_interfacetype, "/interfaces/interface-summary/interface-type",
    YMAP_CHILD("interface-counts",           lvlc_interfaces_interfacetype_interfacecounts),
    YMAP_LEAF ("interface-type-name",        lvlc_interfaces_interfacetype_interfacetypename),
    YMAP_LEAF ("interface-type-description", lvlc_interfaces_interfacetype_interfacetypedescription));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvlb_interfaces_interfacesummary_interfacetype_parse_augments, EmptyHandler);

// /interfaces/interface-summary/interface-type/interface-counts
YMAP_CONTAINER(Operational, lvlc_interfaces_interfacetype_interfacecounts,
    YMAP_LEAF ("interface-count",            lvlf_interfaces_interfacecounts_interfacecount),
    YMAP_LEAF ("up-interface-count",         lvlf_interfaces_interfacecounts_upinterfacecount),
    YMAP_LEAF ("down-interface-count",       lvlf_interfaces_interfacecounts_downinterfacecount),
    YMAP_LEAF ("admin-down-interface-count", lvlf_interfaces_interfacecounts_admindowninterfacecount));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvlc_interfaces_interfacetype_interfacecounts_parse_augments, EmptyHandler);

} // extern "C"

// clang-format on

#undef YMAP_NAME
