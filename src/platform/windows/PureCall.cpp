/// The C runtime's own end for a call of a slot that a destroyed object no longer has.
extern "C" int _purecall();

/// The name that the compiler puts into such slots.
extern "C" void __cxa_pure_virtual() noexcept;

void __cxa_pure_virtual() noexcept {
    _purecall();
    __builtin_trap();
}
