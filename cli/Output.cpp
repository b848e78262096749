#include "Output.h"

#include <cerrno>
#include <unistd.h>

namespace {
constexpr std::size_t BLOCK_SIZE = 1 << 16;
}

BlockOutputBuf::BlockOutputBuf(int fd) : m_fd(fd), m_buffer(BLOCK_SIZE)
{
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
}

BlockOutputBuf::~BlockOutputBuf() { WriteBuffered(); }

bool BlockOutputBuf::Finish() { return WriteBuffered() && !m_bFailed; }

BlockOutputBuf::int_type BlockOutputBuf::overflow(int_type ch)
{
    if (!WriteBuffered())
        return traits_type::eof();
    if (!traits_type::eq_int_type(ch, traits_type::eof())) {
        *pptr() = traits_type::to_char_type(ch);
        pbump(1);
    }
    return traits_type::not_eof(ch);
}

bool BlockOutputBuf::WriteBuffered()
{
    char const *data = pbase();
    std::size_t left = static_cast<std::size_t>(pptr() - pbase());
    while (left > 0 && !m_bFailed) {
        ssize_t const written = ::write(m_fd, data, left);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            m_bFailed = true;
            break;
        }
        data += written;
        left -= static_cast<std::size_t>(written);
    }
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
    return !m_bFailed;
}
