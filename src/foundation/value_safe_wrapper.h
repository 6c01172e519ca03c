#pragma once
// base::TValueSafeWrapper: holds one value and says whether it was ever given one.
// Reading it is always safe: an empty wrapper hands out the value its Initializer made,
// never an indeterminate object. Use it for a working value that is filled later, e.g.
// the Decimal that Json::Number rounds through on its way from a double.
//
// The class is polymorphic (virtual destructor), so a client may derive a wrapper that
// adds behaviour and delete it through the base.

namespace base {

// Puts a value into its default state; the wrapper calls it on construction and Reset.
template <typename T>
struct DefaultInitializer
{
    void operator()(T &value) const { value = T(); }
};

template <typename T, typename Initializer = DefaultInitializer<T>>
class TValueSafeWrapper
{
public:
    TValueSafeWrapper() { Initializer()(m_value); }
    explicit TValueSafeWrapper(T const &value)
        : m_value(value)
        , m_hasValue(true)
    {}
    TValueSafeWrapper(TValueSafeWrapper const &) = default;
    TValueSafeWrapper &operator=(TValueSafeWrapper const &) = default;
    virtual ~TValueSafeWrapper() = default;

    bool HasValue() const { return m_hasValue; }
    void SetValue(T const &value)
    {
        m_value = value;
        m_hasValue = true;
    }
    // Back to the initialised value and empty.
    void Reset()
    {
        Initializer()(m_value);
        m_hasValue = false;
    }

    T &GetValue() { return m_value; }
    T const &GetValue() const { return m_value; }
    T ValueOr(T const &fallback) const { return m_hasValue ? m_value : fallback; }

    T *operator->() { return &m_value; }
    T const *operator->() const { return &m_value; }

private:
    T m_value;
    bool m_hasValue = false;
};

} // namespace base
