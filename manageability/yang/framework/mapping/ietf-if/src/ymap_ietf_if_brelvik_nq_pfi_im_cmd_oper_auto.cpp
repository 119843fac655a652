// Handlers of the model Brelvik-NQ-pfi-im-cmd-oper, the router's operational interface state, on
// the way to /interfaces-state of ietf-interfaces. One row for each node, in schema pre-order:
// the handler's plain name and its shape. A strong function of the plain name in the _man source
// takes the place of a row's.
//
// What maps: the list of interfaces, its key, the MAC address, and the statistics. All other nodes
// are recognised, traced and left out.

#include "ymap_handlers.h"
#include "ymap_ietf_if_brelvik_nq_pfi_im_cmd_oper_man.h"

using namespace ymap;

// clang-format off

// /interfaces
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces, EmptyHandler);

// /interfaces/interface-nq
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacenq, EmptyHandler);

// /interfaces/interface-nq/interface
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_interfacenq_interface,   PathList, {NS_IETF_INTERFACES, "/interfaces-state/interface"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_interfacename, KeyLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/name"});

// /interfaces/interface-nq/interface/dampening-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_dampeninginformation,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_dampeninginformation_penalty,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_dampeninginformation_issuppressedenabled, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_dampeninginformation_secondsremaining,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_dampeninginformation_halflife,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_dampeninginformation_reusethreshold,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_dampeninginformation_suppressthreshold,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_dampeninginformation_maximumsuppresstime, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_dampeninginformation_restartpenalty,      EmptyHandler);

// /interfaces/interface-nq/interface/mac-address
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_macaddress, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_macaddress_address,   MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/phys-address"});

// /interfaces/interface-nq/interface/burned-in-address
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_burnedinaddress, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_burnedinaddress_address,   EmptyHandler);

// /interfaces/interface-nq/interface/carrier-delay
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_carrierdelay,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_carrierdelay_carrierdelayup,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_carrierdelay_carrierdelaydown, EmptyHandler);

// /interfaces/interface-nq/interface/arp-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_arpinformation,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_arpinformation_arptimeout,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_arpinformation_arptypename,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_arpinformation_arpislearningdisabled, EmptyHandler);

// /interfaces/interface-nq/interface/ip-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_ipinformation,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ipinformation_ipaddress,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ipinformation_subnetmasklength, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_encapsulationinformation, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/frame-relay-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationinformation_framerelayinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationinformation_framerelayinformation_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_frencapsulationtype,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_lmitype,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_lmidlci,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_isnni,                    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_isdte,                    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_islmiup,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_islminnidceup,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_islmienabled,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_enquiriesreceived,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_enquiriessent,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_statusreceived,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_statussent,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_updatestatusreceived,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_framerelayinformation_updatestatussent,         EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationinformation_dot1qinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationinformation_dot1qinformation_handle_when);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_dot1qinformation_encapsulationdetails, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/stack
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationdetails_stack, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationdetails_stack_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_stack_outertag,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_stack_secondtag,            EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationdetails_serviceinstancedetails, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationdetails_serviceinstancedetails_handle_when);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/local-traffic-stack
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_serviceinstancedetails_localtrafficstack, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/local-traffic-stack/local-traffic-tag
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_localtrafficstack_localtraffictag, BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_localtraffictag_ethertype,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_localtraffictag_vlanid,            EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_serviceinstancedetails_payloadethertype,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_serviceinstancedetails_tagspopped,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_serviceinstancedetails_isexactmatch,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_serviceinstancedetails_isnativevlan,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_serviceinstancedetails_isnativepreserving,  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_serviceinstancedetails_sourcemacmatch,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_serviceinstancedetails_destinationmacmatch, EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/tags-to-match
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_serviceinstancedetails_tagstomatch, BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tagstomatch_ethertype,              EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tagstomatch_priority,               EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/tags-to-match/vlan-range
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_tagstomatch_vlanrange, BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_vlanrange_vlanidlow,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_vlanrange_vlanidhigh,  EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/service-instance-details/pushe
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_serviceinstancedetails_pushe, BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_pushe_ethertype,              EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_pushe_vlanid,                 EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details/dot1ad-dot1q-stack
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationdetails_dot1addot1qstack, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationdetails_dot1addot1qstack_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_dot1addot1qstack_outertag,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_dot1addot1qstack_secondtag,            EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/dot1q-information/encapsulation-details (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_encapsulationdetails_vlanencapsulation, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_encapsulationdetails_tag,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_encapsulationdetails_outertag,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_encapsulationdetails_nativetag,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_encapsulationdetails_dot1adtag,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_encapsulationdetails_dot1adnativetag,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_encapsulationdetails_dot1adoutertag,    EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/ppp-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationinformation_pppinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_encapsulationinformation_pppinformation_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_pppinformation_lcpstate,                 EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_pppinformation_isloopbackdetected,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_pppinformation_keepaliveperiod,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_pppinformation_ismpbundlemember,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_pppinformation_ismultilinkopen,          EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information/ppp-information/ncp-info-array
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_pppinformation_ncpinfoarray, BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ncpinfoarray_ncpstate,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ncpinfoarray_ncpidentifier,  EmptyHandler);

// /interfaces/interface-nq/interface/encapsulation-information (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_encapsulationinformation_encapsulationtype, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_interfacetypeinformation, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_srpinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_srpinformation_handle_when);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_srpinformation_srpinformation, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_srpinformation_ipsinfo, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ipsinfo_isadmindown,    EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_ipsinfo_localinformation, BareList);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information/side-a
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_localinformation_sidea,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_macaddress,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_wrapstate,              EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_packetsenttimer,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_sendtimertimeremaining, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_wtrtimerremaining,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_selfdetectedrequest,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_remoterequest,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_rxneighbormacaddress,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_rxmessagetype,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_rxpathtype,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_rxttl,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_rxpackettest,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_txneighbormacaddress,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_txmessagetype,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_txpathtype,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_txttl,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_txpackettest,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidea_delaykeepalivetrigger,  EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information/side-a/asserted-failure
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_sidea_assertedfailure,          BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_assertedfailure_type,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_assertedfailure_reportedstate,  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_assertedfailure_debouncedstate, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_assertedfailure_currentstate,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_assertedfailure_stabletime,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_assertedfailure_debounceddelay, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information/side-b
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_localinformation_sideb,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_macaddress,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_wrapstate,              EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_packetsenttimer,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_sendtimertimeremaining, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_wtrtimerremaining,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_selfdetectedrequest,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_remoterequest,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_rxneighbormacaddress,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_rxmessagetype,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_rxpathtype,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_rxttl,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_rxpackettest,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_txneighbormacaddress,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_txmessagetype,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_txpathtype,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_txttl,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_txpackettest,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideb_delaykeepalivetrigger,  EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information/side-b/asserted-failure
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_sideb_assertedfailure,          BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_assertedfailure_type,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_assertedfailure_reportedstate,  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_assertedfailure_debouncedstate, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_assertedfailure_currentstate,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_assertedfailure_stabletime,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_assertedfailure_debounceddelay, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/ips-info/local-information (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_localinformation_macaddress,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_localinformation_isintercardbusenabled, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_localinformation_wtrtimerperiod,        EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/topology-info
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_srpinformation_topologyinfo, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_topologyinfo_isadmindown,    EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/topology-info/local-information
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_topologyinfo_localinformation,                        BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_localinformation_topologytimer,                       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_localinformation_nexttopologypacketdelay,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_localinformation_timesincelasttopologypacketreceived, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_localinformation_timesincelasttopologychange,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_localinformation_numberofnodesonring,                 EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/topology-info/local-information/ring-node
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_localinformation_ringnode, BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ringnode_hopcount,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ringnode_macaddress,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ringnode_ipv4address,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ringnode_iswrapped,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ringnode_issrrsupported,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ringnode_nodename,         EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_srpinformation_srrinfo, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrinfo_isadmindown,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrinfo_issrrenabled,   EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info/srr-detailed-info
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_srrinfo_srrdetailedinfo,                     BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_versionnumber,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_iswrongversionreceived,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_lastwrongversionreceivetime, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_macaddress,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_nodestate,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_isouterringinuse,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_isinnerringinuse,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_isannounce,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_outerfailtype,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_innerfailtype,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_packetsendtimer,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_nextsrrpacketsendtime,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_singleringbw,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_wtrtime,                     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_wtrtimerremainingouterring,  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srrdetailedinfo_wtrtimerremaininginnerring,  EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info/srr-detailed-info/nodes-on-ring
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_srrdetailedinfo_nodesonring,          BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesonring_nodename,                 EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesonring_srrentryexits,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesonring_macaddress,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesonring_outerfailure,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesonring_innerfailure,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesonring_islastannouncereceived,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesonring_lastannouncereceivedtime, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/srr-info/srr-detailed-info/nodes-not-on-ring
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_srrdetailedinfo_nodesnotonring,          BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesnotonring_nodename,                 EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesnotonring_srrentryexits,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesnotonring_macaddress,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesnotonring_outerfailure,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesnotonring_innerfailure,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesnotonring_islastannouncereceived,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodesnotonring_lastannouncereceivedtime, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/rate-limit-info
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_srpinformation_ratelimitinfo, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ratelimitinfo_isadmindown,    EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-information/rate-limit-info/rate-limit-detailed-info
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_ratelimitinfo_ratelimitdetailedinfo,    BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ratelimitdetailedinfo_minpriorityvalue, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_srpinformation_srpstatistics, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics/side-a-data-rate
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_srpstatistics_sideadatarate,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideadatarate_bitratesent,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideadatarate_packetratesent,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideadatarate_bitratereceived,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideadatarate_packetratereceived, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics/side-b-data-rate
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_srpstatistics_sidebdatarate,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidebdatarate_bitratesent,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidebdatarate_packetratesent,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidebdatarate_bitratereceived,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sidebdatarate_packetratereceived, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics/side-a-errors
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_srpstatistics_sideaerrors,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideaerrors_errorpacketsreceived,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideaerrors_crcerrors,                       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideaerrors_inputinsufficientresourceevents, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideaerrors_macabortsreceived,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideaerrors_macruntpacketsreceived,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideaerrors_macgiantpacketsreceived,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideaerrors_framerruntpacketsreceived,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideaerrors_framergiantpacketsreceived,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideaerrors_framerabortsreceived,            EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics/side-b-errors
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_srpstatistics_sideberrors,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideberrors_errorpacketsreceived,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideberrors_crcerrors,                       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideberrors_inputinsufficientresourceevents, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideberrors_macabortsreceived,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideberrors_macruntpacketsreceived,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideberrors_macgiantpacketsreceived,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideberrors_framerruntpacketsreceived,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideberrors_framergiantpacketsreceived,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sideberrors_framerabortsreceived,            EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/srp-information/srp-statistics (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_srpstatistics_datarateinterval, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/tunnel-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_tunnelinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_tunnelinformation_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelinformation_sourcename,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelinformation_sourceipv4address,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelinformation_destinationipv4address,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelinformation_tunneltype,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelinformation_key,                      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelinformation_ttl,                      EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_bundleinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_bundleinformation_handle_when);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information/member
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_bundleinformation_member, BareList);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information/member/member-mux-data
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_member_membermuxdata, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information/member/member-mux-data/member-mux-state-reason-data
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_membermuxdata_membermuxstatereasondata, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_membermuxstatereasondata_reasontype,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_membermuxstatereasondata_severity,      EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information/member/member-mux-data (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_membermuxdata_muxstate,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_membermuxdata_error,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_membermuxdata_membermuxstatereason, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_membermuxdata_memberstate,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_membermuxdata_muxstatereason,       EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information/member/mac-address
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_member_macaddress,  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_macaddress_address, EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/bundle-information/member (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_member_bandwidth,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_member_portpriority,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_member_portnumber,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_member_underlyinglinkid, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_member_linkordernumber,  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_member_interfacename,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_member_iccpnode,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_member_membertype,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_member_membername,       EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/serial-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_serialinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_serialinformation_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_serialinformation_timeslots,                EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/sonet-pos-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_sonetposinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_sonetposinformation_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sonetposinformation_apsstate,                 EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/tunnel-gre-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_tunnelgreinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_tunnelgreinformation_handle_when);

// /interfaces/interface-nq/interface/interface-type-information/tunnel-gre-information/source-ip-address
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_tunnelgreinformation_sourceipaddress, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sourceipaddress_afi,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sourceipaddress_ipv4,                 EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_sourceipaddress_ipv6,                 EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/tunnel-gre-information/destination-ip-address
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_tunnelgreinformation_destinationipaddress, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_destinationipaddress_afi,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_destinationipaddress_ipv4,                 EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_destinationipaddress_ipv6,                 EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/tunnel-gre-information (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelgreinformation_sourcename,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelgreinformation_tunneltos,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelgreinformation_tunnelttl,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelgreinformation_key,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelgreinformation_keepaliveperiod,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelgreinformation_keepalivemaximumretry, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelgreinformation_tunnelmode,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelgreinformation_keepalivestate,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelgreinformation_dfbitstate,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_tunnelgreinformation_keybitstate,           EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/pseudowire-head-end-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_pseudowireheadendinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_pseudowireheadendinformation_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_pseudowireheadendinformation_interfacelistname,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_pseudowireheadendinformation_l2overhead,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_pseudowireheadendinformation_internallabel,            EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/cem-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_ceminformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_ceminformation_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ceminformation_timeslots,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ceminformation_payload,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ceminformation_dejitterbuffer,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_ceminformation_framing,                  EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information/gcc-information
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_gccinformation, WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetypeinformation_gccinformation_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_gccinformation_derivedmode,              EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_gccinformation_secstate,                 EmptyHandler);

// /interfaces/interface-nq/interface/interface-type-information (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacetypeinformation_interfacetypeinfo, EmptyHandler);

// /interfaces/interface-nq/interface/data-rates
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_datarates,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_inputdatarate,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_inputpacketrate,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_outputdatarate,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_outputpacketrate,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_peakinputdatarate,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_peakinputpacketrate,  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_peakoutputdatarate,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_peakoutputpacketrate, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_bandwidth,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_loadinterval,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_outputload,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_inputload,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_datarates_reliability,          EmptyHandler);

// /interfaces/interface-nq/interface/interface-statistics
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_interfacestatistics, WholeContainer, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics"});

// /interfaces/interface-nq/interface/interface-statistics/full-interface-stats
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacestatistics_fullinterfacestats,            WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacestatistics_fullinterfacestats_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_packetsreceived,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_bytesreceived,                  MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics/in-octets"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_packetssent,                    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_bytessent,                      MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics/out-octets"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_multicastpacketsreceived,       MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics/in-multicast-pkts"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_broadcastpacketsreceived,       MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics/in-broadcast-pkts"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_multicastpacketssent,           MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics/out-multicast-pkts"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_broadcastpacketssent,           MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics/out-broadcast-pkts"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_outputdrops,                    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_outputqueuedrops,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_inputdrops,                     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_inputqueuedrops,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_runtpacketsreceived,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_giantpacketsreceived,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_throttledpacketsreceived,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_paritypacketsreceived,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_unknownprotocolpacketsreceived, MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics/in-unknown-protos"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_inputerrors,                    MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics/in-errors"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_crcerrors,                      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_inputoverruns,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_framingerrorsreceived,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_inputignoredpackets,            MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics/in-discards"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_inputaborts,                    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_outputerrors,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_outputunderruns,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_outputbufferfailures,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_outputbuffersswappedout,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_applique,                       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_resets,                         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_carriertransitions,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_availabilityflag,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_lastdatatime,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_secondssincelastclearcounters,  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_lastdiscontinuitytime,          ManualLeafCaller, ymap_qi_ietf_if_brelviknqpfiimcmdoper_man_leaf_lvla_interfaces_fullinterfacestats_lastdiscontinuitytime);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_secondssincepacketreceived,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_fullinterfacestats_secondssincepacketsent,         EmptyHandler);

// /interfaces/interface-nq/interface/interface-statistics/basic-interface-stats
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacestatistics_basicinterfacestats,            WhenContainer, ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacestatistics_basicinterfacestats_handle_when);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_packetsreceived,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_bytesreceived,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_packetssent,                    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_bytessent,                      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_inputdrops,                     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_inputqueuedrops,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_inputerrors,                    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_unknownprotocolpacketsreceived, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_outputdrops,                    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_outputqueuedrops,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_outputerrors,                   MappedLeaf, {NS_IETF_INTERFACES, "/interfaces-state/interface/statistics/out-errors"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_lastdatatime,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_secondssincelastclearcounters,  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_lastdiscontinuitytime,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_secondssincepacketreceived,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_basicinterfacestats_secondssincepacketsent,         EmptyHandler);

// /interfaces/interface-nq/interface/interface-statistics (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacestatistics_statstype, EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_l2interfacestatistics, EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics/stats-id
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_l2interfacestatistics_statsid, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_statsid_idtype,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_statsid_unused,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_statsid_interfacehandle,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_statsid_nodeid,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_statsid_featureid,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_statsid_id,                    EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_l2interfacestatistics_statstype, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_l2interfacestatistics_contents,  EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics/block-array
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_l2interfacestatistics_blockarray, BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_blockarray_type,                  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_blockarray_count,                 EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_blockarray_data,                  EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics/element-array
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_l2interfacestatistics_elementarray, BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_elementarray_key,                   EmptyHandler);

// /interfaces/interface-nq/interface/l2-interface-statistics/element-array/block-array
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_elementarray_blockarray, BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_blockarray_type,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_blockarray_count,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_blockarray_data,         EmptyHandler);

// /interfaces/interface-nq/interface/nv-optical
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interface_nvoptical,  EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nvoptical_controller, EmptyHandler);

// /interfaces/interface-nq/interface (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_interfacehandle,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_interfacetype,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_hardwaretypestring,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_state,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_linestate,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_encapsulation,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_encapsulationtypestring, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_mtu,                     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_isl2transportenabled,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_statetransitioncount,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_laststatetransitiontime, ManualLeafCaller, ymap_qi_ietf_if_brelviknqpfiimcmdoper_man_leaf_lvla_interfaces_interface_laststatetransitiontime);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_isdampeningenabled,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_speed,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_crclength,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_isscrambleenabled,       EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_duplexity,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_mediatype,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_linktype,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_inflowcontrol,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_outflowcontrol,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_bandwidth,               ManualLeafCaller, ymap_qi_ietf_if_brelviknqpfiimcmdoper_man_leaf_lvla_interfaces_interface_bandwidth);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_maxbandwidth,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_keepalive,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_isl2looped,              EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_parentinterfacename,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_loopbackconfiguration,   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_description,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_ismaintenanceenabled,    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_isdatainverted,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_transportmode,           EmptyHandler);

// /interfaces/node-type-sets
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_nodetypesets, EmptyHandler);

// /interfaces/node-type-sets/node-type-set
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_nodetypesets_nodetypeset, BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodetypeset_nodename,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_nodetypeset_typesetname,  EmptyHandler);

// /interfaces/node-type-sets/node-type-set/interface-summary
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_nodetypeset_interfacesummary, EmptyHandler);

// /interfaces/node-type-sets/node-type-set/interface-summary/interface-counts
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacesummary_interfacecounts,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacecounts_interfacecount,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacecounts_upinterfacecount,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacecounts_downinterfacecount,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacecounts_admindowninterfacecount, EmptyHandler);

// /interfaces/node-type-sets/node-type-set/interface-summary/interface-type
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_interfacesummary_interfacetype, BareList);

// /interfaces/node-type-sets/node-type-set/interface-summary/interface-type/interface-counts
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacetype_interfacecounts,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_interfacecounts_interfacecount,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_interfacecounts_upinterfacecount,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_interfacecounts_downinterfacecount,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_interfacecounts_admindowninterfacecount, EmptyHandler);

// /interfaces/node-type-sets/node-type-set/interface-summary/interface-type (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacetype_interfacetypename,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacetype_interfacetypedescription, EmptyHandler);

// /interfaces/interface-briefs
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacebriefs, EmptyHandler);

// /interfaces/interface-briefs/interface-brief
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_interfacebriefs_interfacebrief,         BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_interfacename,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_interface,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_parentinterface,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_type,                    EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_state,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_actualstate,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_linestate,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_actuallinestate,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_encapsulation,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_encapsulationtypestring, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_mtu,                     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_subinterfacemtuoverhead, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_l2transport,             EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interfacebrief_bandwidth,               EmptyHandler);

// /interfaces/inventory-summary
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_inventorysummary, EmptyHandler);

// /interfaces/inventory-summary/interface-counts
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_inventorysummary_interfacecounts,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlc_interfaces_interfacecounts_interfacecount,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlc_interfaces_interfacecounts_upinterfacecount,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlc_interfaces_interfacecounts_downinterfacecount,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlc_interfaces_interfacecounts_admindowninterfacecount, EmptyHandler);

// /interfaces/inventory-summary/interface-type
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_inventorysummary_interfacetype, BareList);

// /interfaces/inventory-summary/interface-type/interface-counts
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvlb_interfaces_interfacetype_interfacecounts,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvld_interfaces_interfacecounts_interfacecount,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvld_interfaces_interfacecounts_upinterfacecount,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvld_interfaces_interfacecounts_downinterfacecount,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvld_interfaces_interfacecounts_admindowninterfacecount, EmptyHandler);

// /interfaces/inventory-summary/interface-type (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_interfacetype_interfacetypename,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_interfacetype_interfacetypedescription, EmptyHandler);

// /interfaces/interfaces
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfaces, EmptyHandler);

// /interfaces/interfaces/interface
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_interfaces_interface,    BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_interface_interfacename, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_interface_interface,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_interface_state,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_interface_linestate,     EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlb_interfaces_interface_description,   EmptyHandler);

// /interfaces/interface-summary
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces_interfacesummary, EmptyHandler);

// /interfaces/interface-summary/interface-counts
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvlb_interfaces_interfacesummary_interfacecounts,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvle_interfaces_interfacecounts_interfacecount,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvle_interfaces_interfacecounts_upinterfacecount,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvle_interfaces_interfacecounts_downinterfacecount,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvle_interfaces_interfacecounts_admindowninterfacecount, EmptyHandler);

// /interfaces/interface-summary/interface-type
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvlb_interfaces_interfacesummary_interfacetype, BareList);

// /interfaces/interface-summary/interface-type/interface-counts
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvlc_interfaces_interfacetype_interfacecounts,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlf_interfaces_interfacecounts_interfacecount,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlf_interfaces_interfacecounts_upinterfacecount,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlf_interfaces_interfacecounts_downinterfacecount,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlf_interfaces_interfacecounts_admindowninterfacecount, EmptyHandler);

// /interfaces/interface-summary/interface-type (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlc_interfaces_interfacetype_interfacetypename,        EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvlc_interfaces_interfacetype_interfacetypedescription, EmptyHandler);
