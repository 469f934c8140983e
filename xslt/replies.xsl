<?xml version="1.0" encoding="utf-8"?>
<!-- The page of a reply, and the replies that hold no report: a refusal, a search, nothing. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <!-- A page of the service: `$lang` and `$country` are its sheet's. -->
  <xsl:template name="report-page">
    <xsl:param name="eyebrow"/>
    <xsl:param name="title"/>
    <xsl:param name="lede"/>
    <xsl:param name="contents"/>
    <xsl:param name="body"/>
    <xsl:call-template name="page">
      <xsl:with-param name="lang" select="$lang"/>
      <xsl:with-param name="eyebrow" select="concat($eyebrow, ', ', $country)"/>
      <xsl:with-param name="title" select="$title"/>
      <xsl:with-param name="lede" select="$lede"/>
      <xsl:with-param name="contents" select="$contents"/>
      <xsl:with-param name="body" select="$body"/>
      <xsl:with-param name="foot">
        <xsl:if test="normalize-space(/BCAmessage/@service-request-id)">
          <xsl:value-of select="concat('Bureau request ', /BCAmessage/@service-request-id, '. ')"/>
        </xsl:if>
        <xsl:text>Confidential: contains personal credit information.</xsl:text>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

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

  <!-- The companies that a search found, and the table of them. -->
  <xsl:template name="companies-page">
    <xsl:param name="found"/>
    <xsl:param name="table"/>
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
          <xsl:copy-of select="$table"/>
          <xsl:if test="not($found)"><p>Nothing on the bureau's files fits the name or number given.</p></xsl:if>
        </section>
      </xsl:with-param>
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
