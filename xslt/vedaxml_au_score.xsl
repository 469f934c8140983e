<?xml version="1.0" encoding="utf-8"?>
<!-- The report's own parts: the bureau's totals and the score. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="score">
    <xsl:apply-templates select="score-data/score" mode="facts"/>
    <dl class="facts">
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Area level risk</xsl:with-param>
        <xsl:with-param name="value" select="(area-level-risk | score-data/area-level-risk)/@indicator"/>
        <xsl:with-param name="as">word</xsl:with-param>
      </xsl:call-template>
    </dl>
  </xsl:template>

  <xsl:template match="score" mode="facts">
    <dl class="facts">
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Type</xsl:with-param>
        <xsl:with-param name="value" select="@type"/>
        <xsl:with-param name="as">word</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Scorecard</xsl:with-param>
        <xsl:with-param name="value" select="scorecard-name"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Relative risk</xsl:with-param>
        <xsl:with-param name="value" select="relative-risk"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Relative risk index</xsl:with-param>
        <xsl:with-param name="value" select="relative-risk-index"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Risk odds</xsl:with-param>
        <xsl:with-param name="value" select="risk-odds"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Population</xsl:with-param>
        <xsl:with-param name="value" select="population/@population-name | population/population-name"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Population odds</xsl:with-param>
        <xsl:with-param name="value" select="population/@population-odds | population/population-odds"/>
      </xsl:call-template>
    </dl>
    <xsl:call-template name="odds">
      <xsl:with-param name="own" select="number(risk-odds)"/>
      <xsl:with-param name="population" select="number(population/@population-odds | population/population-odds)"/>
      <xsl:with-param name="name" select="population/@population-name | population/population-name"/>
    </xsl:call-template>
    <xsl:call-template name="table-section">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Risk factors</xsl:with-param>
      <xsl:with-param name="records" select="risk-factor"/>
      <xsl:with-param name="columns">Factor|Impact|Effect|</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="risk-factor" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Factor</xsl:with-param>
      <xsl:with-param name="value" select="."/>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Impact</xsl:with-param>
      <xsl:with-param name="value" select="@impact-level"/>
      <xsl:with-param name="as">word</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Effect</xsl:with-param>
      <xsl:with-param name="value" select="@impact-effect"/>
      <xsl:with-param name="as">word</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

</xsl:stylesheet>
