source_filename = "blink.cpp"
declare { %class.Output*, %class.Relay*, %struct.unnamed_1*, %struct.unnamed_2* } @llvm.dbg.order()
%class.Led = type { %class.Output }
%class.Output = type { i32 (...)**, i16, i16, i16 }
%class.Relay = type { %class.Output, i16, i8, i8 }
%struct.unnamed_1 = type { [4 x i8*] }
%struct.unnamed_2 = type { i32, void ()*, i8* }
@_ZN4port5out_aE = global i8 0
@_ZN4port5out_bE = global i8 0
@_ZN6Output3allE = global [4 x %class.Output*] zeroinitializer
@_ZN6Output5countE = global i16 0
@_ZL6status = internal global %class.Led zeroinitializer
@_ZL5alarm = internal global %class.Led zeroinitializer
@_ZL4pump = internal global %class.Relay zeroinitializer
@_ZTV3Led = linkonce_odr constant %struct.unnamed_1 { [4 x i8*] [i8* null, i8* null, i8* bitcast (void (%class.Led*, i1)* @_ZN3Led5writeEb to i8*), i8* bitcast (i1 (%class.Led*)* @_ZNK3Led5stateEv to i8*)] }
@_ZTV6Output = linkonce_odr constant %struct.unnamed_1 { [4 x i8*] [i8* null, i8* null, i8* bitcast (void ()* @__cxa_pure_virtual to i8*), i8* bitcast (void ()* @__cxa_pure_virtual to i8*)] }
@_ZTV5Relay = linkonce_odr constant %struct.unnamed_1 { [4 x i8*] [i8* null, i8* null, i8* bitcast (void (%class.Relay*, i1)* @_ZN5Relay5writeEb to i8*), i8* bitcast (i1 (%class.Relay*)* @_ZNK5Relay5stateEv to i8*)] }
@llvm.global_ctors = appending global [1 x %struct.unnamed_2] [%struct.unnamed_2 { i32 65535, void ()* @_GLOBAL__sub_I_blink_cpp, i8* null }]
declare void @llvm.dbg.declare(metadata, metadata, metadata)
declare void @wait_for_tick()
declare void @__cxa_pure_virtual()
define internal void @__cxx_global_var_init() {
entry:
  call void @_ZN3LedC2Ei(%class.Led* @_ZL6status, i16 3)
  ret void
}

define linkonce_odr void @_ZN6Output13register_selfEv(%class.Output* %this) {
entry:
  %this.addr = alloca %class.Output*
  %0 = load i16, i16* @_ZN6Output5countE
  %1 = icmp slt i16 %0, 4
  br i1 %1, label %if.then0, label %if.end0

if.then0:
  %2 = load %class.Output*, %class.Output** %this.addr
  %3 = load i16, i16* @_ZN6Output5countE
  %inc.0 = add i16 %3, 1
  store i16 %inc.0, i16* @_ZN6Output5countE
  %4 = getelementptr inbounds [4 x %class.Output*], [4 x %class.Output*]* @_ZN6Output3allE, i16 0, i16 %3
  store %class.Output* %2, %class.Output** %4
  br label %if.end0

if.end0:
  ret void
}

define linkonce_odr void @_ZN6OutputC2Ei(%class.Output* %this, i16 %on_ticks) {
entry:
  %this.addr = alloca %class.Output*
  %on_ticks.addr = alloca i16
  %0 = load %class.Output*, %class.Output** %this.addr
  %1 = bitcast %class.Output* %0 to i32 (...)***
  store i32 (...)** bitcast (i8** getelementptr (%struct.unnamed_1, %struct.unnamed_1* @_ZTV6Output, i32 0, i32 0, i32 2) to i32 (...)**), i32 (...)*** %1
  %2 = load i16, i16* %on_ticks.addr
  %3 = load %class.Output*, %class.Output** %this.addr
  %4 = getelementptr inbounds %class.Output, %class.Output* %3, i32 0, i32 1
  store i16 %2, i16* %4
  %5 = load i16, i16* %on_ticks.addr
  %6 = load %class.Output*, %class.Output** %this.addr
  %7 = getelementptr inbounds %class.Output, %class.Output* %6, i32 0, i32 2
  store i16 %5, i16* %7
  %8 = load %class.Output*, %class.Output** %this.addr
  %9 = getelementptr inbounds %class.Output, %class.Output* %8, i32 0, i32 3
  store i16 0, i16* %9
  %10 = load %class.Output*, %class.Output** %this.addr
  call void @_ZN6Output13register_selfEv(%class.Output* %10)
  ret void
}

define linkonce_odr void @_ZN3LedC2Ei(%class.Led* %this, i16 %on_ticks) {
entry:
  %this.addr = alloca %class.Led*
  %on_ticks.addr = alloca i16
  %0 = load %class.Led*, %class.Led** %this.addr
  %1 = bitcast %class.Led* %0 to %class.Output*
  %2 = load i16, i16* %on_ticks.addr
  call void @_ZN6OutputC2Ei(%class.Output* %1, i16 %2)
  %3 = load %class.Led*, %class.Led** %this.addr
  %4 = bitcast %class.Led* %3 to i32 (...)***
  store i32 (...)** bitcast (i8** getelementptr (%struct.unnamed_1, %struct.unnamed_1* @_ZTV3Led, i32 0, i32 0, i32 2) to i32 (...)**), i32 (...)*** %4
  ret void
}

define internal void @__cxx_global_var_init_1() {
entry:
  call void @_ZN3LedC2Ei(%class.Led* @_ZL5alarm, i16 5)
  ret void
}

define internal void @__cxx_global_var_init_2() {
entry:
  call void @_ZN5RelayC2Eii(%class.Relay* @_ZL4pump, i16 10, i16 2)
  ret void
}

define linkonce_odr void @_ZN5RelayC2Eii(%class.Relay* %this, i16 %on_ticks, i16 %hold) {
entry:
  %this.addr = alloca %class.Relay*
  %on_ticks.addr = alloca i16
  %hold.addr = alloca i16
  %0 = load %class.Relay*, %class.Relay** %this.addr
  %1 = bitcast %class.Relay* %0 to %class.Output*
  %2 = load i16, i16* %on_ticks.addr
  call void @_ZN6OutputC2Ei(%class.Output* %1, i16 %2)
  %3 = load %class.Relay*, %class.Relay** %this.addr
  %4 = bitcast %class.Relay* %3 to i32 (...)***
  store i32 (...)** bitcast (i8** getelementptr (%struct.unnamed_1, %struct.unnamed_1* @_ZTV5Relay, i32 0, i32 0, i32 2) to i32 (...)**), i32 (...)*** %4
  %5 = load i16, i16* %hold.addr
  %6 = load %class.Relay*, %class.Relay** %this.addr
  %7 = getelementptr inbounds %class.Relay, %class.Relay* %6, i32 0, i32 1
  store i16 %5, i16* %7
  %8 = load %class.Relay*, %class.Relay** %this.addr
  %9 = getelementptr inbounds %class.Relay, %class.Relay* %8, i32 0, i32 2
  store i8 0, i8* %9
  ret void
}

define i16 @run(i16 %ticks) {
entry:
  %ticks.addr = alloca i16
  %t = alloca i16
  %i = alloca i16
  %sum = alloca i16
  %i7 = alloca i16
  store i16 0, i16* %t
  br label %for.cond0

for.cond0:
  %0 = load i16, i16* %t
  %1 = load i16, i16* %ticks.addr
  %2 = icmp slt i16 %0, %1
  br i1 %2, label %for.body0, label %for.end0

for.body0:
  call void @wait_for_tick()
  store i16 0, i16* %i
  br label %for.cond1

for.cond1:
  %3 = load i16, i16* %i
  %4 = load i16, i16* @_ZN6Output5countE
  %5 = icmp slt i16 %3, %4
  br i1 %5, label %for.body1, label %for.end1

for.body1:
  %6 = load i16, i16* %i
  %7 = getelementptr inbounds [4 x %class.Output*], [4 x %class.Output*]* @_ZN6Output3allE, i16 0, i16 %6
  %8 = load %class.Output*, %class.Output** %7
  call void @_ZN6Output4tickEv(%class.Output* %8)
  br label %for.inc1

for.inc1:
  %9 = load i16, i16* %i
  %10 = add i16 %9, 1
  store i16 %10, i16* %i
  br label %for.cond1

for.end1:
  br label %for.inc0

for.inc0:
  %11 = load i16, i16* %t
  %12 = add i16 %11, 1
  store i16 %12, i16* %t
  br label %for.cond0

for.end0:
  store i16 0, i16* %sum
  store i16 0, i16* %i7
  br label %for.cond2

for.cond2:
  %13 = load i16, i16* %i7
  %14 = load i16, i16* @_ZN6Output5countE
  %15 = icmp slt i16 %13, %14
  br i1 %15, label %for.body2, label %for.end2

for.body2:
  %16 = load i16, i16* %sum
  %17 = load i16, i16* %i7
  %18 = getelementptr inbounds [4 x %class.Output*], [4 x %class.Output*]* @_ZN6Output3allE, i16 0, i16 %17
  %19 = load %class.Output*, %class.Output** %18
  %20 = call i16 @_ZNK6Output8switchesEv(%class.Output* %19)
  %21 = add i16 %16, %20
  store i16 %21, i16* %sum
  br label %for.inc2

for.inc2:
  %22 = load i16, i16* %i7
  %23 = add i16 %22, 1
  store i16 %23, i16* %i7
  br label %for.cond2

for.end2:
  %24 = load i16, i16* %sum
  ret i16 %24
}

define linkonce_odr void @_ZN6Output4tickEv(%class.Output* %this) {
entry:
  %this.addr = alloca %class.Output*
  %lnot = alloca i1
  %0 = load %class.Output*, %class.Output** %this.addr
  %1 = getelementptr inbounds %class.Output, %class.Output* %0, i32 0, i32 2
  %2 = load i16, i16* %1
  %3 = add i16 %2, -1
  %4 = load %class.Output*, %class.Output** %this.addr
  %5 = getelementptr inbounds %class.Output, %class.Output* %4, i32 0, i32 2
  store i16 %3, i16* %5
  %6 = icmp sgt i16 %3, 0
  br i1 %6, label %if.then0, label %if.end0

if.then0:
  ret void

if.end0:
  %7 = load %class.Output*, %class.Output** %this.addr
  %8 = getelementptr inbounds %class.Output, %class.Output* %7, i32 0, i32 1
  %9 = load i16, i16* %8
  %10 = load %class.Output*, %class.Output** %this.addr
  %11 = getelementptr inbounds %class.Output, %class.Output* %10, i32 0, i32 2
  store i16 %9, i16* %11
  %12 = load %class.Output*, %class.Output** %this.addr
  %13 = getelementptr inbounds %class.Output, %class.Output* %12, i32 0, i32 3
  %14 = load i16, i16* %13
  %15 = add i16 %14, 1
  %16 = load %class.Output*, %class.Output** %this.addr
  %17 = getelementptr inbounds %class.Output, %class.Output* %16, i32 0, i32 3
  store i16 %15, i16* %17
  %18 = load %class.Output*, %class.Output** %this.addr
  %19 = bitcast %class.Output* %18 to i1 (%class.Output*)***
  %20 = load i1 (%class.Output*)**, i1 (%class.Output*)*** %19
  %21 = getelementptr inbounds i1 (%class.Output*)*, i1 (%class.Output*)** %20, i64 1
  %22 = load i1 (%class.Output*)*, i1 (%class.Output*)** %21
  %23 = load %class.Output*, %class.Output** %this.addr
  %24 = call i1 %22(%class.Output* %23)
  %25 = icmp eq i1 %24, false
  store i1 %25, i1* %lnot
  %26 = load %class.Output*, %class.Output** %this.addr
  %27 = bitcast %class.Output* %26 to void (%class.Output*, i1)***
  %28 = load void (%class.Output*, i1)**, void (%class.Output*, i1)*** %27
  %29 = getelementptr inbounds void (%class.Output*, i1)*, void (%class.Output*, i1)** %28, i64 0
  %30 = load void (%class.Output*, i1)*, void (%class.Output*, i1)** %29
  %31 = load %class.Output*, %class.Output** %this.addr
  %32 = load i1, i1* %lnot
  call void %30(%class.Output* %31, i1 %32)
  ret void
}

define linkonce_odr i16 @_ZNK6Output8switchesEv(%class.Output* %this) {
entry:
  %this.addr = alloca %class.Output*
  %0 = load %class.Output*, %class.Output** %this.addr
  %1 = getelementptr inbounds %class.Output, %class.Output* %0, i32 0, i32 3
  %2 = load i16, i16* %1
  ret i16 %2
}

define linkonce_odr void @_ZN4port3PinIL_ZNS_5out_aEELi3EE3setEv() {
entry:
  %0 = load volatile i8, i8* @_ZN4port5out_aE
  %1 = zext i8 %0 to i16
  %2 = or i16 %1, 8
  %3 = trunc i16 %2 to i8
  store volatile i8 %3, i8* @_ZN4port5out_aE
  ret void
}

define linkonce_odr void @_ZN4port3PinIL_ZNS_5out_aEELi3EE5clearEv() {
entry:
  %0 = load volatile i8, i8* @_ZN4port5out_aE
  %1 = zext i8 %0 to i16
  %2 = and i16 %1, -9
  %3 = trunc i16 %2 to i8
  store volatile i8 %3, i8* @_ZN4port5out_aE
  ret void
}

define linkonce_odr void @_ZN3Led5writeEb(%class.Led* %this, i1 zeroext %on) {
entry:
  %this.addr = alloca %class.Led*
  %on.addr = alloca i8
  %0 = load i8, i8* %on.addr
  %1 = trunc i8 %0 to i1
  br i1 %1, label %if.then0, label %if.else0

if.then0:
  call void @_ZN4port3PinIL_ZNS_5out_aEELi3EE3setEv()
  br label %if.end0

if.else0:
  call void @_ZN4port3PinIL_ZNS_5out_aEELi3EE5clearEv()
  br label %if.end0

if.end0:
  ret void
}

define linkonce_odr zeroext i1 @_ZN4port3PinIL_ZNS_5out_aEELi3EE4readEv() {
entry:
  %0 = load volatile i8, i8* @_ZN4port5out_aE
  %1 = zext i8 %0 to i16
  %2 = and i16 %1, 8
  %3 = icmp ne i16 %2, 0
  ret i1 %3
}

define linkonce_odr zeroext i1 @_ZNK3Led5stateEv(%class.Led* %this) {
entry:
  %this.addr = alloca %class.Led*
  %0 = call i1 @_ZN4port3PinIL_ZNS_5out_aEELi3EE4readEv()
  ret i1 %0
}

define linkonce_odr void @_ZN4port3PinIL_ZNS_5out_bEELi0EE3setEv() {
entry:
  %0 = load volatile i8, i8* @_ZN4port5out_bE
  %1 = zext i8 %0 to i16
  %2 = or i16 %1, 1
  %3 = trunc i16 %2 to i8
  store volatile i8 %3, i8* @_ZN4port5out_bE
  ret void
}

define linkonce_odr void @_ZN4port3PinIL_ZNS_5out_bEELi0EE5clearEv() {
entry:
  %0 = load volatile i8, i8* @_ZN4port5out_bE
  %1 = zext i8 %0 to i16
  %2 = and i16 %1, -2
  %3 = trunc i16 %2 to i8
  store volatile i8 %3, i8* @_ZN4port5out_bE
  ret void
}

define linkonce_odr void @_ZN5Relay5writeEb(%class.Relay* %this, i1 zeroext %wanted) {
entry:
  %this.addr = alloca %class.Relay*
  %wanted.addr = alloca i8
  %0 = load i8, i8* %wanted.addr
  %1 = trunc i8 %0 to i1
  br i1 %1, label %land.lhs.true1, label %if.end0

land.lhs.true1:
  %2 = load %class.Relay*, %class.Relay** %this.addr
  %3 = getelementptr inbounds %class.Relay, %class.Relay* %2, i32 0, i32 1
  %4 = load i16, i16* %3
  %5 = icmp sgt i16 %4, 0
  br i1 %5, label %if.then0, label %if.end0

if.then0:
  %6 = load %class.Relay*, %class.Relay** %this.addr
  %7 = getelementptr inbounds %class.Relay, %class.Relay* %6, i32 0, i32 1
  %8 = load i16, i16* %7
  %9 = add i16 %8, -1
  %10 = load %class.Relay*, %class.Relay** %this.addr
  %11 = getelementptr inbounds %class.Relay, %class.Relay* %10, i32 0, i32 1
  store i16 %9, i16* %11
  ret void

if.end0:
  %12 = load i8, i8* %wanted.addr
  %13 = trunc i8 %12 to i1
  %14 = zext i1 %13 to i8
  %15 = load %class.Relay*, %class.Relay** %this.addr
  %16 = getelementptr inbounds %class.Relay, %class.Relay* %15, i32 0, i32 2
  store i8 %14, i8* %16
  %17 = load %class.Relay*, %class.Relay** %this.addr
  %18 = getelementptr inbounds %class.Relay, %class.Relay* %17, i32 0, i32 2
  %19 = load i8, i8* %18
  %20 = trunc i8 %19 to i1
  br i1 %20, label %if.then2, label %if.else2

if.then2:
  call void @_ZN4port3PinIL_ZNS_5out_bEELi0EE3setEv()
  br label %if.end2

if.else2:
  call void @_ZN4port3PinIL_ZNS_5out_bEELi0EE5clearEv()
  br label %if.end2

if.end2:
  ret void
}

define linkonce_odr zeroext i1 @_ZNK5Relay5stateEv(%class.Relay* %this) {
entry:
  %this.addr = alloca %class.Relay*
  %0 = load %class.Relay*, %class.Relay** %this.addr
  %1 = getelementptr inbounds %class.Relay, %class.Relay* %0, i32 0, i32 2
  %2 = load i8, i8* %1
  %3 = trunc i8 %2 to i1
  ret i1 %3
}

define internal void @_GLOBAL__sub_I_blink_cpp() {
entry:
  call void @__cxx_global_var_init()
  call void @__cxx_global_var_init_1()
  call void @__cxx_global_var_init_2()
  ret void
}

