#pragma once

#include <vips/vips8>

/// A kind of file that is read, and the loader that reads it.
struct Format {
  const char* name;
  const char* endings;  // separated by spaces, as MIME types are
  const char* mimeTypes;
  const char* loader;  // libvips' nickname; null for ImageMagick's, which needs a signature
  std::string_view signatures[2];  // with which such a file begins, even a damaged one
};

/// The format of a file by its content; null when it is none of the list, or its loader is absent.
const Format* FormatOf(const vips::VSource& source);

/// Writes the list as picture_protocol.h describes it, without formats whose loader is absent.
void PrintFormats();
