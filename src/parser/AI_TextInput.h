// Reading a script file as the original platform's text mode reads it: a
// carriage return followed by a line feed arrives as one line feed (also
// when the two bytes fall into different reads), a byte 0x1A ends the input,
// and a carriage return on its own is passed on unchanged. Internal to the
// scanner.
#ifndef STRATAGEM_PARSER_AI_TEXTINPUT_H
#define STRATAGEM_PARSER_AI_TEXTINPUT_H

#include <cstddef>

// Reads at most nMaxSize bytes of text from the file descriptor into the
// buffer; answers their number, 0 at the end of the text, -1 when reading
// fails. The file is read in chunks of at most 8,192 bytes.
int AI_ReadText(int nFile, char *pBuffer, std::size_t nMaxSize);

// Forgets what was read ahead and the end of the text: the next read starts
// afresh on whatever descriptor it is given.
void AI_ResetText();

#endif
