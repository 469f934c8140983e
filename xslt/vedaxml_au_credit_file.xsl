<?xml version="1.0" encoding="utf-8"?>
<!-- The consumer and the commercial credit file; only the role in an enquiry differs. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="credit-file">
    <xsl:param name="level"/>
    <xsl:call-template name="table-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Cross references</xsl:with-param>
      <xsl:with-param name="records" select="individual-cross-reference"/>
      <xsl:with-param name="columns">Name|Bureau reference|Created|</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Defaults</xsl:with-param>
      <xsl:with-param name="records" select="default"/>
      <xsl:with-param name="noun">Default</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="table-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Notes</xsl:with-param>
      <xsl:with-param name="records" select="file-note"/>
      <xsl:with-param name="columns">Recorded|Note|</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="table-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Current credit providers</xsl:with-param>
      <xsl:with-param name="records" select="current-credit-provider"/>
      <xsl:with-param name="columns">Credit provider|Reference|Provided|</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="table-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Enquiries</xsl:with-param>
      <xsl:with-param name="records" select="credit-enquiry"/>
      <xsl:with-param name="columns">Date|Type|Enquirer|Reference|Account type|$Amount|</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="message-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">File messages</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="individual-cross-reference" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Name</xsl:with-param>
      <xsl:with-param name="value"><xsl:apply-templates select="." mode="name"/></xsl:with-param>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Bureau reference</xsl:with-param>
      <xsl:with-param name="value" select="bureau-reference"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Created</xsl:with-param>
      <xsl:with-param name="value" select="@create-date"/>
      <xsl:with-param name="as">date</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="file-note" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Recorded</xsl:with-param>
      <xsl:with-param name="value" select="@date-recorded"/>
      <xsl:with-param name="as">date</xsl:with-param>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Note</xsl:with-param>
      <xsl:with-param name="class">prose</xsl:with-param>
      <xsl:with-param name="value" select="."/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="current-credit-provider" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Credit provider</xsl:with-param>
      <xsl:with-param name="value" select="credit-provider"/>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Reference</xsl:with-param>
      <xsl:with-param name="value" select="client-reference"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Provided</xsl:with-param>
      <xsl:with-param name="value" select="@date-provided"/>
      <xsl:with-param name="as">date</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="credit-enquiry" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Date</xsl:with-param>
      <xsl:with-param name="value" select="@enquiry-date"/>
      <xsl:with-param name="as">date</xsl:with-param>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Type</xsl:with-param>
      <xsl:with-param name="value" select="@type"/>
      <xsl:with-param name="as">word</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Enquirer</xsl:with-param>
      <xsl:with-param name="value" select="credit-enquirer"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Reference</xsl:with-param>
      <xsl:with-param name="value" select="client-reference"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Account type</xsl:with-param>
      <xsl:with-param name="value"><xsl:apply-templates select="." mode="account-type"/></xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Amount</xsl:with-param>
      <xsl:with-param name="value" select="enquiry-amount"/>
      <xsl:with-param name="as">amount</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- In the consumer file the role always stands; in the commercial file only one that is not the
       principal's. -->
  <xsl:template match="credit-enquiry | account-details" mode="account-type">
    <xsl:value-of select="account-type"/>
    <xsl:if test="normalize-space(role/@type)"><xsl:value-of select="concat(' as ', role/@type)"/></xsl:if>
  </xsl:template>
  <xsl:template match="individual-commercial-credit-file/credit-enquiry" mode="account-type">
    <xsl:value-of select="account-type"/>
    <xsl:if test="normalize-space(role/@type)
                  and translate(role/@type, $small, $capital) != 'PRINCIPAL'">
      <xsl:value-of select="concat(' (', role/@type, ')')"/>
    </xsl:if>
  </xsl:template>

  <xsl:template match="default" mode="tag">
    <xsl:if test="not(account-details/default-status[@code = 'P' or @code = 'S'])
                  and translate(current-default/default-amount, '$, ', '') &gt; 0">
      <xsl:call-template name="tag"><xsl:with-param name="text">Not paid</xsl:with-param></xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template match="default" mode="facts">
    <xsl:param name="name"/>
    <dl class="facts">
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Account type</xsl:with-param>
        <xsl:with-param name="value"><xsl:apply-templates select="account-details" mode="account-type"/></xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Client reference</xsl:with-param>
        <xsl:with-param name="value" select="account-details/client-reference"/>
      </xsl:call-template>
      <xsl:call-template name="dated-fact">
        <xsl:with-param name="label">Status</xsl:with-param>
        <xsl:with-param name="fact" select="account-details/default-status"/>
      </xsl:call-template>
    </dl>
    <xsl:if test="original-default | current-default">
      <table class="wide" role="table">
        <caption class="unseen"><xsl:value-of select="concat($name, ', as first and as last reported')"/></caption>
        <xsl:call-template name="table-head">
          <xsl:with-param name="columns">Listing|Recorded|Reason|Credit provider|$Amount|</xsl:with-param>
        </xsl:call-template>
        <tbody role="rowgroup"><xsl:apply-templates select="original-default | current-default"/></tbody>
      </table>
    </xsl:if>
  </xsl:template>

  <xsl:template match="original-default | current-default">
    <tr role="row">
      <xsl:call-template name="cell">
        <xsl:with-param name="label">Listing</xsl:with-param>
        <xsl:with-param name="value" select="substring('OriginalCurrent', 1 + 8 * boolean(self::current-default),
                                                       8 - boolean(self::current-default))"/>
        <xsl:with-param name="head" select="true()"/>
      </xsl:call-template>
      <xsl:call-template name="cell">
        <xsl:with-param name="label">Recorded</xsl:with-param>
        <xsl:with-param name="value" select="date-recorded"/>
        <xsl:with-param name="as">date</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="cell">
        <xsl:with-param name="label">Reason</xsl:with-param>
        <xsl:with-param name="value" select="reason-to-report"/>
      </xsl:call-template>
      <xsl:call-template name="cell">
        <xsl:with-param name="label">Credit provider</xsl:with-param>
        <xsl:with-param name="value" select="credit-provider"/>
      </xsl:call-template>
      <xsl:call-template name="cell">
        <xsl:with-param name="label">Amount</xsl:with-param>
        <xsl:with-param name="value" select="default-amount"/>
        <xsl:with-param name="as">amount</xsl:with-param>
      </xsl:call-template>
    </tr>
  </xsl:template>

  <!-- A status followed by its date, when it has one. -->
  <xsl:template name="dated-fact">
    <xsl:param name="label"/>
    <xsl:param name="fact"/>
    <xsl:call-template name="fact">
      <xsl:with-param name="label" select="$label"/>
      <xsl:with-param name="value">
        <xsl:value-of select="normalize-space($fact)"/>
        <xsl:if test="normalize-space($fact/@date)">
          <xsl:if test="normalize-space($fact)"> on </xsl:if>
          <xsl:call-template name="date">
            <xsl:with-param name="text" select="normalize-space($fact/@date)"/>
          </xsl:call-template>
        </xsl:if>
      </xsl:with-param>
      <xsl:with-param name="as">made</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

</xsl:stylesheet>
