<?xml version="1.0" encoding="utf-8"?>
<!-- Replies that hold no report: a refusal, the companies of a search, or nothing. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="refusal-page">
    <xsl:param name="refusals"/>
    <xsl:call-template name="report-page">
      <xsl:with-param name="eyebrow">Bureau reply</xsl:with-param>
      <xsl:with-param name="title">The bureau refused the request</xsl:with-param>
      <xsl:with-param name="body">
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
      </xsl:with-param>
    </xsl:call-template>
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

  <xsl:template name="companies-page">
    <xsl:variable name="found" select="$response/org-id-result"/>
    <xsl:call-template name="report-page">
      <xsl:with-param name="eyebrow">Company search</xsl:with-param>
      <xsl:with-param name="title">
        <xsl:choose>
          <xsl:when test="not($found)">No companies found</xsl:when>
          <xsl:when test="count($found) = 1">1 company found</xsl:when>
          <xsl:otherwise><xsl:value-of select="concat(count($found), ' companies found')"/></xsl:otherwise>
        </xsl:choose>
      </xsl:with-param>
      <xsl:with-param name="body">
        <section class="panel">
          <xsl:call-template name="table-section">
            <xsl:with-param name="level" select="2"/>
            <xsl:with-param name="title">Companies</xsl:with-param>
            <xsl:with-param name="records" select="$found"/>
            <xsl:with-param name="columns">Company|Type|Number|Status|State|Bureau file|</xsl:with-param>
          </xsl:call-template>
          <xsl:if test="not($found)"><p>Nothing on the bureau's files fits the name or number given.</p></xsl:if>
        </section>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- The number is that which the heading names; without a heading, the business number. -->
  <xsl:template match="org-id-result" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Company</xsl:with-param>
      <xsl:with-param name="value" select="match-name"/>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Type</xsl:with-param>
      <xsl:with-param name="value"><xsl:choose>
        <xsl:when test="normalize-space(australian-business-register-report/EntityTypeText)">
          <xsl:value-of select="australian-business-register-report/EntityTypeText"/>
        </xsl:when>
        <xsl:otherwise><xsl:value-of select="organisation-type"/></xsl:otherwise>
      </xsl:choose></xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Number</xsl:with-param>
      <xsl:with-param name="value"><xsl:choose>
        <xsl:when test="normalize-space(organisation-number-heading) = 'ACN'">
          <xsl:value-of select="concat('ACN&#160;', normalize-space(organisation-number))"/>
        </xsl:when>
        <xsl:when test="not(normalize-space(organisation-number-heading))
                        and normalize-space(australian-business-number)">
          <xsl:value-of select="concat('ABN&#160;', normalize-space(australian-business-number))"/>
        </xsl:when>
      </xsl:choose></xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Status</xsl:with-param>
      <xsl:with-param name="value" select="asic-report/asic-status"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">State</xsl:with-param>
      <xsl:with-param name="value" select="state"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Bureau file</xsl:with-param>
      <xsl:with-param name="value" select="bureau-report/bureau-reference"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="nothing-page">
    <xsl:call-template name="report-page">
      <xsl:with-param name="eyebrow">Bureau reply</xsl:with-param>
      <xsl:with-param name="title">The reply holds no report</xsl:with-param>
      <xsl:with-param name="body">
        <section class="panel">
          <h2>What was received</h2>
          <p>The bureau's reply holds neither a credit report nor an error.</p>
        </section>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

</xsl:stylesheet>
