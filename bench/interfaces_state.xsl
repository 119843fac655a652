<?xml version="1.0" encoding="UTF-8"?>
<!-- What the library does with native operational data, as a stylesheet: it makes the same
     /interfaces-state, below the same outermost element, out of the same document. The leaves
     follow in the order of the document, and nodes without a counterpart are left out. -->
<xsl:stylesheet version="1.0"
                xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
                xmlns:n="http://brelvik.example/ns/yang/Brelvik-NQ-pfi-im-cmd-oper"
                xmlns:nc="urn:ietf:params:xml:ns:netconf:base:1.0"
                xmlns="urn:ietf:params:xml:ns:yang:ietf-interfaces"
                exclude-result-prefixes="n #default">
  <xsl:output method="xml" indent="yes" omit-xml-declaration="yes"/>

  <xsl:template match="/">
    <nc:data><xsl:apply-templates select="n:interfaces"/></nc:data>
  </xsl:template>

  <xsl:template match="n:interfaces">
    <interfaces-state><xsl:apply-templates select="n:interface-nq/n:interface"/></interfaces-state>
  </xsl:template>

  <xsl:template match="n:interface">
    <interface><xsl:apply-templates select="*"/></interface>
  </xsl:template>

  <xsl:template match="n:interface/n:interface-name">
    <name><xsl:value-of select="."/></name>
  </xsl:template>

  <xsl:template match="n:mac-address">
    <xsl:apply-templates select="n:address"/>
  </xsl:template>

  <xsl:template match="n:mac-address/n:address">
    <phys-address><xsl:value-of select="."/></phys-address>
  </xsl:template>

  <xsl:template match="n:interface-statistics">
    <statistics><xsl:apply-templates select="*/*"/></statistics>
  </xsl:template>

  <xsl:template match="n:full-interface-stats/n:bytes-received">
    <in-octets><xsl:value-of select="."/></in-octets>
  </xsl:template>
  <xsl:template match="n:full-interface-stats/n:bytes-sent">
    <out-octets><xsl:value-of select="."/></out-octets>
  </xsl:template>
  <xsl:template match="n:full-interface-stats/n:multicast-packets-received">
    <in-multicast-pkts><xsl:value-of select="."/></in-multicast-pkts>
  </xsl:template>
  <xsl:template match="n:full-interface-stats/n:broadcast-packets-received">
    <in-broadcast-pkts><xsl:value-of select="."/></in-broadcast-pkts>
  </xsl:template>
  <xsl:template match="n:full-interface-stats/n:multicast-packets-sent">
    <out-multicast-pkts><xsl:value-of select="."/></out-multicast-pkts>
  </xsl:template>
  <xsl:template match="n:full-interface-stats/n:broadcast-packets-sent">
    <out-broadcast-pkts><xsl:value-of select="."/></out-broadcast-pkts>
  </xsl:template>
  <xsl:template match="n:full-interface-stats/n:unknown-protocol-packets-received">
    <in-unknown-protos><xsl:value-of select="."/></in-unknown-protos>
  </xsl:template>
  <xsl:template match="n:full-interface-stats/n:input-errors">
    <in-errors><xsl:value-of select="."/></in-errors>
  </xsl:template>
  <xsl:template match="n:full-interface-stats/n:input-ignored-packets">
    <in-discards><xsl:value-of select="."/></in-discards>
  </xsl:template>
  <xsl:template match="n:basic-interface-stats/n:output-errors">
    <out-errors><xsl:value-of select="."/></out-errors>
  </xsl:template>

  <!-- All that is recognised and left out. -->
  <xsl:template match="n:*" priority="-1"/>
</xsl:stylesheet>
