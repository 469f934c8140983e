<?xml version="1.0" encoding="utf-8"?>
<!-- A matched file: the person and the files about them. The possible match is the same, one
     heading lower and under its own name. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template match="possible-match" mode="other">
    <section class="panel other" aria-labelledby="possible-match">
      <h2 id="possible-match">Possible match</h2>
      <p class="say warn">This file may belong to somebody else. Confirm the identity before relying on it.</p>
      <dl class="facts">
        <xsl:call-template name="fact">
          <xsl:with-param name="label">Bureau file number</xsl:with-param>
          <xsl:with-param name="value" select="bureau-reference"/>
        </xsl:call-template>
        <xsl:call-template name="match-type"><xsl:with-param name="type" select="@type"/></xsl:call-template>
      </dl>
      <xsl:call-template name="parts"><xsl:with-param name="level" select="3"/></xsl:call-template>
    </section>
  </xsl:template>

  <xsl:template name="person">
    <xsl:param name="level"/>
    <xsl:call-template name="details"/>
    <xsl:call-template name="table-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Addresses</xsl:with-param>
      <xsl:with-param name="records" select="address"/>
      <xsl:with-param name="columns">Type|Address|Recorded|</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="table-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Employment</xsl:with-param>
      <xsl:with-param name="records" select="employment"/>
      <xsl:with-param name="columns">Employer|Occupation|Recorded|</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="details">
    <dl class="facts">
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Name</xsl:with-param>
        <xsl:with-param name="value"><xsl:apply-templates select="." mode="name"/></xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Gender</xsl:with-param>
        <xsl:with-param name="value" select="gender/@type"/>
        <xsl:with-param name="as">word</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Date of birth</xsl:with-param>
        <xsl:with-param name="value" select="date-of-birth"/>
        <xsl:with-param name="as">date</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Driver's licence number</xsl:with-param>
        <xsl:with-param name="value" select="drivers-licence-number"/>
      </xsl:call-template>
    </dl>
  </xsl:template>

  <xsl:template match="address" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Type</xsl:with-param>
      <xsl:with-param name="value">
        <xsl:variable name="type">
          <xsl:call-template name="look-up">
            <xsl:with-param name="table" select="$address-types"/>
            <xsl:with-param name="code" select="string(@type)"/>
          </xsl:call-template>
        </xsl:variable>
        <xsl:call-template name="word"><xsl:with-param name="text" select="string($type)"/></xsl:call-template>
      </xsl:with-param>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Address</xsl:with-param>
      <xsl:with-param name="value"><xsl:call-template name="address-text"/></xsl:with-param>
      <xsl:with-param name="class">address</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Recorded</xsl:with-param>
      <xsl:with-param name="value" select="@create-date"/>
      <xsl:with-param name="as">date</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- "2/10 ROSE COTTAGE HIGH Street", and below it "SUBURB NSW 2000". -->
  <xsl:template name="address-text">
    <xsl:variable name="unit" select="normalize-space(unit-number)"/>
    <xsl:variable name="street-type">
      <xsl:call-template name="look-up">
        <xsl:with-param name="table" select="$street-types"/>
        <xsl:with-param name="code" select="string(street-type/@code)"/>
      </xsl:call-template>
    </xsl:variable>
    <xsl:variable name="street"
                  select="normalize-space(concat($unit, substring('/', 1, string-length($unit)),
                                                 street-number, ' ', property, ' ', street-name, ' ',
                                                 $street-type))"/>
    <xsl:variable name="place" select="normalize-space(concat(suburb, ' ', state, ' ', postcode))"/>
    <xsl:value-of select="$street"/>
    <xsl:if test="$street and $place"><xsl:text>&#10;</xsl:text></xsl:if>
    <xsl:value-of select="$place"/>
  </xsl:template>

  <xsl:template match="employment" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Employer</xsl:with-param>
      <xsl:with-param name="value" select="employer"/>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Occupation</xsl:with-param>
      <xsl:with-param name="value" select="occupation"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Recorded</xsl:with-param>
      <xsl:with-param name="value" select="@create-date"/>
      <xsl:with-param name="as">date</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="message-section">
    <xsl:param name="level"/>
    <xsl:param name="title"/>
    <xsl:if test="file-message[normalize-space()]">
      <xsl:call-template name="heading">
        <xsl:with-param name="level" select="$level"/>
        <xsl:with-param name="text" select="$title"/>
      </xsl:call-template>
      <ul class="messages">
        <xsl:for-each select="file-message[normalize-space()]">
          <li><xsl:value-of select="normalize-space()"/></li>
        </xsl:for-each>
      </ul>
    </xsl:if>
  </xsl:template>

</xsl:stylesheet>
