<?xml version="1.0" encoding="utf-8"?>
<!-- What a page is of: a report, which is the sheet's own, or a reply that holds none: a refusal, a
     search, another service's report, nothing. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:variable name="refusals" select="//BCAservice-data/BCAerror | //BCAservice-data/response/error"/>

  <!-- What kind of page the reply makes. A sheet knows the reports that are its own (`$mine`), those
       of other services (`$foreign`), and the companies of a search (`$found`, `$searched`). -->
  <xsl:variable name="page"><xsl:choose>
    <xsl:when test="$refusals">refusal</xsl:when>
    <xsl:when test="$foreign or $service and not(contains(concat('|', $services, '|'), concat('|', $service, '|')))">other</xsl:when>
    <xsl:when test="$mine">report</xsl:when>
    <xsl:when test="$searched">companies</xsl:when>
    <xsl:otherwise>nothing</xsl:otherwise>
  </xsl:choose></xsl:variable>

  <xsl:template name="eyebrow">
    <xsl:choose>
      <xsl:when test="$page = 'report'"><xsl:call-template name="report-kind"/></xsl:when>
      <xsl:when test="$page = 'companies'">Company search</xsl:when>
      <xsl:otherwise>Bureau reply</xsl:otherwise>
    </xsl:choose>
    <xsl:value-of select="concat(', ', $country)"/>
  </xsl:template>

  <xsl:template name="title">
    <xsl:choose>
      <xsl:when test="$page = 'refusal'">The bureau refused the request</xsl:when>
      <xsl:when test="$page = 'other'">This sheet is not for this report</xsl:when>
      <xsl:when test="$page = 'report'"><xsl:call-template name="report-title"/></xsl:when>
      <xsl:when test="$page = 'nothing'">The reply holds no report</xsl:when>
      <xsl:when test="not($found)">No companies found</xsl:when>
      <xsl:when test="count($found) = 1">1 company found</xsl:when>
      <xsl:otherwise><xsl:value-of select="concat(count($found), ' companies found')"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="lede">
    <xsl:choose>
      <xsl:when test="$page = 'report'"><xsl:call-template name="report-lede"/></xsl:when>
      <xsl:otherwise><xsl:call-template name="whose"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="contents">
    <xsl:if test="$page = 'report'"><xsl:call-template name="report-contents"/></xsl:if>
  </xsl:template>

  <xsl:template name="body">
    <xsl:choose>
      <xsl:when test="$page = 'report'"><xsl:call-template name="report-body"/></xsl:when>
      <xsl:when test="$page = 'refusal'"><xsl:call-template name="refusal"/></xsl:when>
      <xsl:when test="$page = 'companies'">
        <section class="panel">
          <xsl:call-template name="companies"/>
          <xsl:if test="not($found)"><p>Nothing on the bureau's files fits the name or number given.</p></xsl:if>
        </section>
      </xsl:when>
      <xsl:when test="$page = 'other'">
        <section class="panel other">
          <h2>What was received</h2>
          <p><xsl:value-of select="concat('This sheet shows reports of ', translate($services, '|', ','), ' only. The reply is a report of another service, and is not shown: choose the sheet of the service that it came from.')"/></p>
        </section>
      </xsl:when>
      <xsl:otherwise>
        <section class="panel">
          <h2>What was received</h2>
          <p>The bureau's reply holds neither a credit report nor an error.</p>
        </section>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="refusal">
    <section class="panel other">
      <h2>What the bureau says</h2>
      <table class="wide" role="table">
        <caption class="unseen">Errors reported by the bureau</caption>
        <xsl:call-template name="table-head">
          <xsl:with-param name="columns">Error|Code|Type|Where|</xsl:with-param>
        </xsl:call-template>
        <tbody role="rowgroup">
          <xsl:for-each select="$refusals">
            <tr role="row"><xsl:apply-templates select="." mode="row"/></tr>
          </xsl:for-each>
        </tbody>
      </table>
    </section>
    <p>There is no report in this reply. Correct the request, or ask the bureau about the code.</p>
  </xsl:template>

  <xsl:template match="BCAerror" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Error</xsl:with-param>
      <xsl:with-param name="value" select="BCAerror-description"/>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Code</xsl:with-param>
      <xsl:with-param name="value" select="BCAerror-code"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Type</xsl:with-param>
      <xsl:with-param name="value" select="@type"/>
      <xsl:with-param name="as">word</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Where</xsl:with-param>
      <xsl:with-param name="value" select="''"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="error" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Error</xsl:with-param>
      <xsl:with-param name="value" select="error-description"/>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Code</xsl:with-param>
      <xsl:with-param name="value" select="error-description/@code"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Type</xsl:with-param>
      <xsl:with-param name="value" select="error-type"/>
      <xsl:with-param name="as">word</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Where</xsl:with-param>
      <xsl:with-param name="value" select="input-container"/>
    </xsl:call-template>
  </xsl:template>

</xsl:stylesheet>
