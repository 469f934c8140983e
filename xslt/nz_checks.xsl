<?xml version="1.0" encoding="utf-8"?>
<!-- What others say of the applicant: identity verification, LicenceCheck, overdue fines. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="check-parts">
    <xsl:param name="as"/>
    <xsl:call-template name="part">
      <xsl:with-param name="id">licence</xsl:with-param>
      <xsl:with-param name="title">LicenceCheck</xsl:with-param>
      <xsl:with-param name="of" select="licencecheck-report/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">fines</xsl:with-param>
      <xsl:with-param name="title">Ministry of Justice fines</xsl:with-param>
      <xsl:with-param name="of" select="moj-fines-report/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="identity-verification | verification" mode="part">
    <xsl:param name="level"/>
    <xsl:for-each select="electoral-roll[1]">
      <xsl:call-template name="titled-facts">
        <xsl:with-param name="level" select="$level + 1"/>
        <xsl:with-param name="title">Electoral roll</xsl:with-param>
        <xsl:with-param name="fields">
          Name = . as name;
          Address = free-format-address as made;
          Occupation = occupation;
        </xsl:with-param>
      </xsl:call-template>
    </xsl:for-each>
    <xsl:for-each select="quotable-values[1]">
      <xsl:call-template name="titled-facts">
        <xsl:with-param name="level" select="$level + 1"/>
        <xsl:with-param name="title">Quotable values</xsl:with-param>
        <xsl:with-param name="fields">
          Status = quotable-values-result-status as marked;
          Owner/ occupier 1 = owner-occupier-1;
          Owner/ occupier 2 = owner-occupier-2;
          Street number = . as made;
          Street name = street-name;
          Region = region;
        </xsl:with-param>
      </xsl:call-template>
    </xsl:for-each>
    <xsl:for-each select="property-ownership[1]/property-ownership-verification-result[1]">
      <xsl:call-template name="titled-facts">
        <xsl:with-param name="level" select="$level + 1"/>
        <xsl:with-param name="title">Property ownership</xsl:with-param>
        <xsl:with-param name="fields">
          Verified = @verified as yes;
          Owner = property-owner;
          Street number = . as made;
          Street name = street-name;
          City/ district = city-district;
          Region = region-description;
          Reference = property-reference;
        </xsl:with-param>
      </xsl:call-template>
    </xsl:for-each>
    <xsl:for-each select="electronic-white-pages[1]">
      <xsl:call-template name="titled-facts">
        <xsl:with-param name="level" select="$level + 1"/>
        <xsl:with-param name="title">White pages</xsl:with-param>
        <xsl:with-param name="fields">
          Status = electronic-white-pages-result-status as marked;
          Displayed data = displayed-data;
          Phone type = phone-type;
          +Narrative = narrative;
        </xsl:with-param>
      </xsl:call-template>
    </xsl:for-each>
    <xsl:for-each select="driver-licence[1]">
      <xsl:call-template name="titled-facts">
        <xsl:with-param name="level" select="$level + 1"/>
        <xsl:with-param name="title">Driver licence</xsl:with-param>
        <xsl:with-param name="fields">
          Licence number = driver-licence-indicator/@match as matched;
          Family name = family-name-indicator/@match as matched;
          First given name = first-given-name-indicator/@match as matched;
          Other given name = other-given-name-indicator/@match as matched;
          Date of birth = date-of-birth/@match as matched;
          +Narrative = general-message;
        </xsl:with-param>
      </xsl:call-template>
    </xsl:for-each>
  </xsl:template>

  <!-- Facts below a heading. Nothing without facts. -->
  <xsl:template name="titled-facts">
    <xsl:param name="level"/>
    <xsl:param name="title"/>
    <xsl:param name="fields"/>
    <xsl:variable name="facts">
      <xsl:call-template name="facts"><xsl:with-param name="fields" select="$fields"/></xsl:call-template>
    </xsl:variable>
    <xsl:if test="string($facts)">
      <xsl:call-template name="heading">
        <xsl:with-param name="level" select="$level"/>
        <xsl:with-param name="text" select="$title"/>
      </xsl:call-template>
      <xsl:copy-of select="$facts"/>
    </xsl:if>
  </xsl:template>

  <xsl:template match="property-ownership-verification-result | quotable-values" mode="made">
    <xsl:value-of select="normalize-space(street-number-from)"/>
    <xsl:if test="normalize-space(street-number-to)">
      <xsl:value-of select="concat(' to ', normalize-space(street-number-to))"/>
    </xsl:if>
  </xsl:template>

  <!-- A message stands in place of the licence's details. Whether these have an element of their own
       is the bureau's. -->
  <xsl:template match="licencecheck-report">
    <xsl:choose>
      <xsl:when test="licencecheck-message">
        <p class="say"><xsl:value-of select="normalize-space(licencecheck-message)"/></p>
      </xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="facts">
          <xsl:with-param name="fields">
            Name = . as name;
            Licence = driver-licence-details/driver-licence;
            Licence status = driver-licence-details/licence-status;
            Licence status = licence-status;
            Active = driver-licence-details/active-status-flag as yes;
            Active = active-status-flag as yes;
          </xsl:with-param>
        </xsl:call-template>
        <xsl:call-template name="field-table">
          <xsl:with-param name="level" select="3"/>
          <xsl:with-param name="title">Licence components</xsl:with-param>
          <xsl:with-param name="records" select="(. | driver-licence-details)
              /driver-licence-component-details/driver-licence-component"/>
          <xsl:with-param name="fields">
            Type = component-type;
            Description = component-description;
            Start date = start-date as date;
            End date = end-date as date;
            Status = status;
          </xsl:with-param>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="moj-fines-report">
    <xsl:variable name="person" select="moj-fines-individual-details-confirmation[1]"/>
    <xsl:if test="normalize-space(moj-fines-balance-banner)">
      <p class="say"><xsl:value-of select="normalize-space(moj-fines-balance-banner)"/></p>
    </xsl:if>
    <xsl:for-each select="moj-overdue-fines-balance[1]">
      <xsl:call-template name="titled-facts">
        <xsl:with-param name="level" select="3"/>
        <xsl:with-param name="title">Overdue fines balance</xsl:with-param>
        <xsl:with-param name="fields">
          Amount = fines-amount as amount;
          As at = asatdate as date;
          Indicator = fines-indicator as yes;
          +Message = fines-message/fines-message-text as lines;
        </xsl:with-param>
      </xsl:call-template>
    </xsl:for-each>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Messages</xsl:with-param>
      <xsl:with-param name="records" select="moj-messages/moj-message"/>
      <xsl:with-param name="fields">
        Type = moj-message-code as fines-messages;
        +Text = message-text;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:for-each select="$person">
      <xsl:call-template name="titled-facts">
        <xsl:with-param name="level" select="3"/>
        <xsl:with-param name="title">Person asked about</xsl:with-param>
        <xsl:with-param name="fields">
          Name = . as name;
          Gender = gender/@type as word;
          Date of birth = date-of-birth as date;
          Driver licence number = driver-licence-details/licence-number;
          Driver licence version = driver-licence-details/licence-version-number;
          Driver licence verified = driver-licence-details as made;
          Occupation = employment/occupation;
          Employer = employment/employer;
          Veda reference = external-transaction-reference;
          Timestamp = request-timestamp as moment;
        </xsl:with-param>
      </xsl:call-template>
    </xsl:for-each>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Addresses asked about</xsl:with-param>
      <xsl:with-param name="records" select="moj-fines-address-details-confirmation/address"/>
      <xsl:with-param name="fields">
        Type = @type as word;
        Address = . as made;
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="driver-licence-details" mode="made">
    <xsl:variable name="code" select="normalize-space(driver-licence-verified)"/>
    <xsl:choose>
      <xsl:when test="$code = ''">Not supplied</xsl:when>
      <xsl:when test="$code = 'N'">NOT Verified</xsl:when>
      <xsl:when test="$code = 'Y'">Verified</xsl:when>
      <xsl:when test="$code = 'X'">Verification Service not available</xsl:when>
      <xsl:otherwise>Unknown</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

</xsl:stylesheet>
