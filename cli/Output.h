// Buffered output to a file descriptor for large listings. The listing ends
// every line with endl, which flushes; through this buffer a flush costs
// nothing and the text goes out in large blocks.
#ifndef STRATAGEM_CLI_OUTPUT_H
#define STRATAGEM_CLI_OUTPUT_H

#include <streambuf>
#include <vector>

class BlockOutputBuf : public std::streambuf
{
public:
    explicit BlockOutputBuf(int fd);
    ~BlockOutputBuf() override;

    // Writes out what is buffered; false once any write has failed.
    bool Finish();

protected:
    int_type overflow(int_type ch) override;
    int sync() override { return 0; }  // flush requests wait for the next full block

private:
    bool WriteBuffered();

    int m_fd;
    std::vector<char> m_buffer;
    bool m_bFailed = false;
};

#endif
