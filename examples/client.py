#!/usr/bin/python3
"""A session with a NETCONF server of `ymap serve`, by ncclient: configures an interface, looks at it
from both sides, reads state, meets an error, and takes the interface away again.

usage: client.py --port PORT --key FILE [--host HOST] [--user USER]   as scripts/serve prints it
"""

import argparse
import getpass

from lxml import etree
from ncclient import manager
from ncclient.operations import RPCError

NAME = "gigabit-ethernet-0/0/7"
CLIENTS = "urn:ietf:params:xml:ns:yang:ietf-interfaces"
ROUTERS = "http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg"
NETCONF = "urn:ietf:params:xml:ns:netconf:base:1.0"


def interface(content, operation="merge"):
    """An edit of the interface, as ncclient wants it."""
    return f"""<config xmlns:nc="{NETCONF}">
  <interfaces xmlns="{CLIENTS}">
    <interface nc:operation="{operation}"><name>{NAME}</name>{content}</interface>
  </interfaces>
</config>"""


def of_clients(root, content=""):
    return "subtree", f'<{root} xmlns="{CLIENTS}">{content}</{root}>'


def of_router():
    return "subtree", f"""<interface-configurations xmlns="{ROUTERS}">
  <interface-configuration><active>act</active><interface-name>{NAME}</interface-name>
  </interface-configuration>
</interface-configurations>"""


def show(title, reply):
    print(f"\n=== {title}")
    parser = etree.XMLParser(remove_blank_text=True)
    data = reply.data_ele if hasattr(reply, "data_ele") else etree.fromstring(str(reply).encode())
    text = etree.tostring(data)
    print(etree.tostring(etree.fromstring(text, parser), pretty_print=True).decode(), end="")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    parser.add_argument("--host", default="127.0.0.1")
    parser.add_argument("--port", type=int, default=830)
    parser.add_argument("--user", default=getpass.getuser())
    parser.add_argument("--key", required=True)
    arguments = parser.parse_args()

    # On the machine itself there is nobody in between; elsewhere, leave hostkey_verify as it is.
    session = manager.connect(
        host=arguments.host, port=arguments.port, username=arguments.user,
        key_filename=arguments.key, hostkey_verify=arguments.host != "127.0.0.1",
        allow_agent=False, look_for_keys=False)
    with session:
        print(f"session {session.session_id}, which can:")
        for capability in session.server_capabilities:
            print(f"  {capability}")

        content = "<description>Lab, rack 3</description><enabled>true</enabled>"
        show("the interface is created", session.edit_config(
            interface(content, "create"), target="running"))
        show("and that is what clients see of it", session.get_config(
            "running", of_clients("interfaces", f"<interface><name>{NAME}</name></interface>")))
        show("and what the router has", session.get_config("running", of_router()))

        show("state of all interfaces, counters included",
             session.get(of_clients("interfaces-state")))

        print("\n=== the same once more: an error, and nothing is changed")
        try:
            session.edit_config(interface(content, "create"), target="running")
        except RPCError as error:
            print(f"{error.tag} at {error.path.strip()}\n{error.message}")
        else:
            raise SystemExit("it was created twice")

        show("the interface is deleted", session.edit_config(
            interface("", "delete"), target="running"))


if __name__ == "__main__":
    main()
