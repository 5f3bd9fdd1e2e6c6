#pragma once

/** A document with one error, a misspelt name, over the scene of CliTest; all names are ASCII. */
constexpr const char* faultyDocument =
    R"(<Variants><VariantSet name="S"><NodeVariantRef ref="Roff" state="Open"/></VariantSet>
  <NodeVariant name="Roof" base="Roof"><State name="Open"/></NodeVariant></Variants>)";

/** What the report says of it. */
constexpr const char* faultyReport =
    "Error,VariantSet,S,Roff,,node variant not found\n"
    "Info,NodeVariant,Roof,Roof,,valid\n";
