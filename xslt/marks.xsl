<?xml version="1.0" encoding="utf-8"?>
<!-- What must not be overlooked: said in words and in colour where it stands, and again in the
     overview. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <!-- The list of the overview: one item a node that has something to say in mode "mark". -->
  <xsl:template name="marks">
    <xsl:param name="of"/>
    <xsl:variable name="made"><xsl:apply-templates select="$of" mode="mark"/></xsl:variable>
    <xsl:if test="string($made)"><ul class="marks"><xsl:copy-of select="$made"/></ul></xsl:if>
  </xsl:template>

  <xsl:template match="* | @*" mode="mark"/>

  <xsl:template name="mark">
    <xsl:param name="class">bad</xsl:param>
    <xsl:param name="what"/>
    <xsl:param name="says"/>
    <li class="{$class}">
      <xsl:value-of select="concat($what, ': ')"/>
      <strong><xsl:value-of select="normalize-space($says)"/></strong>
    </li>
  </xsl:template>

  <!-- "bad" for a company that others have taken over or that is at its end, "warn" for one that is no
       more on the register and for what does not match. -->
  <xsl:template name="gravity">
    <xsl:param name="text"/>
    <xsl:variable name="words" select="translate($text, $capital, $small)"/>
    <xsl:choose>
      <xsl:when test="contains($words, 'receiver') or contains($words, 'liquidat') or contains($words, 'insolven')
                      or contains($words, 'administ') or contains($words, 'wound up')
                      or contains($words, 'winding up') or contains($words, 'bankrupt')">bad</xsl:when>
      <xsl:when test="contains($words, 'struck off') or contains($words, 'strike off') or contains($words, 'removed')
                      or contains($words, 'deregister') or contains($words, 'dissolved')
                      or contains($words, 'disqualif')
                      or contains(concat(' ', $words, ' '), ' no match ')">warn</xsl:when>
    </xsl:choose>
  </xsl:template>

  <!-- A text, in colour when it is grave. -->
  <xsl:template name="marked">
    <xsl:param name="text"/>
    <xsl:variable name="gravity"><xsl:call-template name="gravity"><xsl:with-param name="text" select="$text"/></xsl:call-template></xsl:variable>
    <xsl:choose>
      <xsl:when test="string($gravity)"><span class="flag {$gravity}"><xsl:value-of select="$text"/></span></xsl:when>
      <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- A status in the overview, if it is grave: whose, and what. -->
  <xsl:template name="status-mark">
    <xsl:param name="what"/>
    <xsl:variable name="gravity"><xsl:call-template name="gravity"><xsl:with-param name="text" select="normalize-space()"/></xsl:call-template></xsl:variable>
    <xsl:if test="string($gravity)">
      <xsl:call-template name="mark">
        <xsl:with-param name="class" select="string($gravity)"/>
        <xsl:with-param name="what" select="$what"/>
        <xsl:with-param name="says" select="."/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- PARTIAL, exact and No Match, in both countries in one way: Partial, Exact, No match. -->
  <xsl:template name="match-type">
    <xsl:param name="type"/>
    <xsl:variable name="text" select="translate(normalize-space($type), concat($capital, '-_'), concat($small, '  '))"/>
    <xsl:if test="$text">
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Match type</xsl:with-param>
        <xsl:with-param name="value" select="concat(translate(substring($text, 1, 1), $small, $capital), substring($text, 2))"/>
        <xsl:with-param name="as">marked</xsl:with-param>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template match="@match-type | primary-match/@type | possible-match/@type" mode="mark">
    <xsl:variable name="text" select="translate(normalize-space(), concat($capital, '-_'), concat($small, '  '))"/>
    <xsl:choose>
      <xsl:when test="$text = 'no match' or $text = 'none'">
        <xsl:call-template name="mark"><xsl:with-param name="what">Match type</xsl:with-param><xsl:with-param name="says">No match: this may be nobody's file</xsl:with-param></xsl:call-template>
      </xsl:when>
      <xsl:when test="$text = 'partial' or $text = 'possible'">
        <xsl:call-template name="mark"><xsl:with-param name="class">warn</xsl:with-param><xsl:with-param name="what">Match type</xsl:with-param><xsl:with-param name="says" select="concat(translate(substring($text, 1, 1), $small, $capital), substring($text, 2), ', not exact: confirm the identity')"/></xsl:call-template>
      </xsl:when>
    </xsl:choose>
  </xsl:template>

</xsl:stylesheet>
