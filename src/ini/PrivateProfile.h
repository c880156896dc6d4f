#pragma once
// Profile files: the host's configuration files, read and edited in place one
// value at a time, in the manner of the Windows profile calls. This is a
// dialect of its own, not the settings text of a firm (ini/SettingsText.h).
//
// Every function takes the file path last and opens and closes the file within
// the call; nothing is kept between calls and nothing locks, so two writers
// lose one another's changes. A file that can't be opened for reading reads as
// one without the section. Lines are read with fixed buffers (2000 bytes for
// the value and section readers, 256 for the section names and the section
// writer, 1024 for the value writer): a longer line is taken as several lines.
// Section and key names compare ignoring the case of ASCII letters. Null
// section or key names find nothing and change nothing.

// Cuts the string at its last "\r"; without one, at its last "\n".
char* lx_rmcr(char* s);
// Drops trailing bytes below 33 taken as unsigned; bytes with the high bit stay.
char* lx_trim_right(char* s);
// Drops leading bytes from 1 to 32.
char* lx_trim_left(char* s);
// lx_rmcr, lx_trim_right and lx_trim_left, in that order. Returns s.
char* lx_trim(char* s);

// The first place in the haystack where the needle stands, ignoring the case of
// ASCII letters; null if nowhere. An empty needle stands at the start.
const char* _stristr(const char* haystack, const char* needle);

// Reading. A section opens at the first trimmed line that does not begin with
// ";" and holds "[section]" anywhere, ignoring case. Behind it the first line
// whose part before the first "=", trimmed, equals the key gives the value.

// The value of the key by strtol in base 10, narrowed to 32 bits and
// sign-extended; the default when the file, section or key is missing. A
// trimmed line beginning with "[" ends the section.
long lx_GetPrivateProfileInt(const char* section, const char* key, unsigned long defaultValue, const char* path);

// Copies the trimmed value of the key, or the default (null reads as empty)
// when the file, section or key is missing, into out with strncpy to size
// bytes, the last byte of out forced to zero; a trailing "\r" or "\n" left in
// the copy, and then a "\r" before it, are cut. A line beginning with "[" as
// read, before any trimming, ends the section: an indented header does not.
// Returns the length of the text in out; with no room (size 0) nothing is
// written and the result is 0.
unsigned long lx_GetPrivateProfileString(const char* section, const char* key, const char* defaultValue, char* out,
                                         unsigned long size, const char* path);

// Zeroes out, then packs the trimmed lines behind the header up to a line
// beginning with "[" or the end of the file, comments and blanks included, each
// ended by a zero byte. Returns the bytes used; when a line would bring the
// total to size or more, stops and returns size - 2 (0 for a size below 2).
unsigned long lx_GetPrivateProfileSection(const char* section, char* out, unsigned long size, const char* path);

// Zeroes out, then packs the names of the headers in file order, each ended by
// a zero byte: a trimmed line beginning with "[" gives the text behind it up to
// its last "]" (to the end of the line without one). Stops when the room left
// is not more than the name's length. Returns the bytes used, 0 if the file
// can't be opened.
unsigned long lx_GetPrivateProfileSectionNames(char* out, unsigned long size, const char* path);

// Sets key=value (the key spelled as given) in the section, or removes the key
// when value is null. The whole file is read, every line trimmed, and written
// back with "\n" after each line, in place. The header here must equal
// "[section]" whole, ignoring case. A new key goes at the end of its section,
// right before the next header; a missing section is appended with its key.
// Lines beginning with ";", "#" or "//" are passed over. A missing file is
// created. Returns 1, or 0 if the file can't be opened for writing (left as it
// was).
int lx_WritePrivateProfileString(const char* section, const char* key, const char* value, const char* path);

// Replaces the key lines of the section with the packed strings (each ended by
// a zero byte, the list by an empty string), which go right behind the header;
// empty lines and lines beginning with ";", "#" or "//" stay, below them. A
// missing section is appended after an empty line. Null strings remove the
// key lines and the header. Rewrites the file as lx_WritePrivateProfileString
// does. Returns 1, or 0 if the file can't be opened for writing.
int lx_WritePrivateProfileSection(const char* section, const char* strings, const char* path);
