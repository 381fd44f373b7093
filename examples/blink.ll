; ModuleID = 'blink.cpp'
source_filename = "blink.cpp"
target datalayout = "e-m:e-p:16:16-i32:16-i64:16-f32:16-f64:16-a:8-n8:16-S16"
target triple = "msp430"

declare { %class.Output*, %class.Relay* } @llvm.dbg.order()
%class.Led = type { %class.Output }
%class.Output = type { i32 (...)**, i16, i16, i16 }
%class.Relay = type <{ %class.Output, i16, i8, i8 }>

$_ZN3LedC2Ei = comdat any

$_ZN5RelayC2Eii = comdat any

$_ZN6Output4tickEv = comdat any

$_ZNK6Output8switchesEv = comdat any

$_ZN6OutputC2Ei = comdat any

$_ZN3Led5writeEb = comdat any

$_ZNK3Led5stateEv = comdat any

$_ZN6Output13register_selfEv = comdat any

$_ZN4port3PinIL_ZNS_5out_aEELi3EE3setEv = comdat any

$_ZN4port3PinIL_ZNS_5out_aEELi3EE5clearEv = comdat any

$_ZN4port3PinIL_ZNS_5out_aEELi3EE4readEv = comdat any

$_ZN5Relay5writeEb = comdat any

$_ZNK5Relay5stateEv = comdat any

$_ZN4port3PinIL_ZNS_5out_bEELi0EE3setEv = comdat any

$_ZN4port3PinIL_ZNS_5out_bEELi0EE5clearEv = comdat any

$_ZTV3Led = comdat any

$_ZTV6Output = comdat any

$_ZTV5Relay = comdat any

@_ZN4port5out_aE = global i8 0, align 1
@_ZN4port5out_bE = global i8 0, align 1
@_ZN6Output3allE = global [4 x %class.Output*] zeroinitializer, align 2
@_ZN6Output5countE = global i16 0, align 2
@_ZL6status = internal global %class.Led zeroinitializer, align 2
@_ZL5alarm = internal global %class.Led zeroinitializer, align 2
@_ZL4pump = internal global %class.Relay zeroinitializer, align 2
@_ZTV3Led = linkonce_odr unnamed_addr constant { [4 x i8*] } { [4 x i8*] [i8* null, i8* null, i8* bitcast (void (%class.Led*, i1)* @_ZN3Led5writeEb to i8*), i8* bitcast (i1 (%class.Led*)* @_ZNK3Led5stateEv to i8*)] }, comdat, align 2
@_ZTV6Output = linkonce_odr unnamed_addr constant { [4 x i8*] } { [4 x i8*] [i8* null, i8* null, i8* bitcast (void ()* @__cxa_pure_virtual to i8*), i8* bitcast (void ()* @__cxa_pure_virtual to i8*)] }, comdat, align 2
@_ZTV5Relay = linkonce_odr unnamed_addr constant { [4 x i8*] } { [4 x i8*] [i8* null, i8* null, i8* bitcast (void (%class.Relay*, i1)* @_ZN5Relay5writeEb to i8*), i8* bitcast (i1 (%class.Relay*)* @_ZNK5Relay5stateEv to i8*)] }, comdat, align 2
@llvm.global_ctors = appending global [1 x { i32, void ()*, i8* }] [{ i32, void ()*, i8* } { i32 65535, void ()* @_GLOBAL__sub_I_blink.cpp, i8* null }]

; Function Attrs: noinline nounwind
define internal void @__cxx_global_var_init() #0 {
entry:
  call void @_ZN3LedC2Ei(%class.Led* nonnull align 2 dereferenceable(8) @_ZL6status, i16 3)
  ret void
}

; Function Attrs: noinline nounwind optnone
define linkonce_odr void @_ZN3LedC2Ei(%class.Led* nonnull align 2 dereferenceable(8) %this, i16 %on_ticks) unnamed_addr #1 comdat align 2 {
entry:
  %this.addr = alloca %class.Led*, align 2
  %on_ticks.addr = alloca i16, align 2
  store %class.Led* %this, %class.Led** %this.addr, align 2
  store i16 %on_ticks, i16* %on_ticks.addr, align 2
  %this1 = load %class.Led*, %class.Led** %this.addr, align 2
  %0 = bitcast %class.Led* %this1 to %class.Output*
  %1 = load i16, i16* %on_ticks.addr, align 2
  call void @_ZN6OutputC2Ei(%class.Output* nonnull align 2 dereferenceable(8) %0, i16 %1)
  %2 = bitcast %class.Led* %this1 to i32 (...)***
  store i32 (...)** bitcast (i8** getelementptr inbounds ({ [4 x i8*] }, { [4 x i8*] }* @_ZTV3Led, i32 0, inrange i32 0, i32 2) to i32 (...)**), i32 (...)*** %2, align 2
  ret void
}

; Function Attrs: noinline nounwind
define internal void @__cxx_global_var_init.1() #0 {
entry:
  call void @_ZN3LedC2Ei(%class.Led* nonnull align 2 dereferenceable(8) @_ZL5alarm, i16 5)
  ret void
}

; Function Attrs: noinline nounwind
define internal void @__cxx_global_var_init.2() #0 {
entry:
  call void @_ZN5RelayC2Eii(%class.Relay* nonnull align 2 dereferenceable(11) @_ZL4pump, i16 10, i16 2)
  ret void
}

; Function Attrs: noinline nounwind optnone
define linkonce_odr void @_ZN5RelayC2Eii(%class.Relay* nonnull align 2 dereferenceable(11) %this, i16 %on_ticks, i16 %hold) unnamed_addr #1 comdat align 2 {
entry:
  %this.addr = alloca %class.Relay*, align 2
  %on_ticks.addr = alloca i16, align 2
  %hold.addr = alloca i16, align 2
  store %class.Relay* %this, %class.Relay** %this.addr, align 2
  store i16 %on_ticks, i16* %on_ticks.addr, align 2
  store i16 %hold, i16* %hold.addr, align 2
  %this1 = load %class.Relay*, %class.Relay** %this.addr, align 2
  %0 = bitcast %class.Relay* %this1 to %class.Output*
  %1 = load i16, i16* %on_ticks.addr, align 2
  call void @_ZN6OutputC2Ei(%class.Output* nonnull align 2 dereferenceable(8) %0, i16 %1)
  %2 = bitcast %class.Relay* %this1 to i32 (...)***
  store i32 (...)** bitcast (i8** getelementptr inbounds ({ [4 x i8*] }, { [4 x i8*] }* @_ZTV5Relay, i32 0, inrange i32 0, i32 2) to i32 (...)**), i32 (...)*** %2, align 2
  %holding = getelementptr inbounds %class.Relay, %class.Relay* %this1, i32 0, i32 1
  %3 = load i16, i16* %hold.addr, align 2
  store i16 %3, i16* %holding, align 2
  %on = getelementptr inbounds %class.Relay, %class.Relay* %this1, i32 0, i32 2
  store i8 0, i8* %on, align 2
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define i16 @run(i16 %ticks) #2 {
entry:
  %ticks.addr = alloca i16, align 2
  %t = alloca i16, align 2
  %i = alloca i16, align 2
  %sum = alloca i16, align 2
  %i7 = alloca i16, align 2
  store i16 %ticks, i16* %ticks.addr, align 2
  store i16 0, i16* %t, align 2
  br label %for.cond

for.cond:
  %0 = load i16, i16* %t, align 2
  %1 = load i16, i16* %ticks.addr, align 2
  %cmp = icmp slt i16 %0, %1
  br i1 %cmp, label %for.body, label %for.end6

for.body:
  call void @wait_for_tick()
  store i16 0, i16* %i, align 2
  br label %for.cond1

for.cond1:
  %2 = load i16, i16* %i, align 2
  %3 = load i16, i16* @_ZN6Output5countE, align 2
  %cmp2 = icmp slt i16 %2, %3
  br i1 %cmp2, label %for.body3, label %for.end

for.body3:
  %4 = load i16, i16* %i, align 2
  %arrayidx = getelementptr inbounds [4 x %class.Output*], [4 x %class.Output*]* @_ZN6Output3allE, i16 0, i16 %4
  %5 = load %class.Output*, %class.Output** %arrayidx, align 2
  call void @_ZN6Output4tickEv(%class.Output* nonnull align 2 dereferenceable(8) %5)
  br label %for.inc

for.inc:
  %6 = load i16, i16* %i, align 2
  %inc = add nsw i16 %6, 1
  store i16 %inc, i16* %i, align 2
  br label %for.cond1

for.end:
  br label %for.inc4

for.inc4:
  %7 = load i16, i16* %t, align 2
  %inc5 = add nsw i16 %7, 1
  store i16 %inc5, i16* %t, align 2
  br label %for.cond

for.end6:
  store i16 0, i16* %sum, align 2
  store i16 0, i16* %i7, align 2
  br label %for.cond8

for.cond8:
  %8 = load i16, i16* %i7, align 2
  %9 = load i16, i16* @_ZN6Output5countE, align 2
  %cmp9 = icmp slt i16 %8, %9
  br i1 %cmp9, label %for.body10, label %for.end14

for.body10:
  %10 = load i16, i16* %i7, align 2
  %arrayidx11 = getelementptr inbounds [4 x %class.Output*], [4 x %class.Output*]* @_ZN6Output3allE, i16 0, i16 %10
  %11 = load %class.Output*, %class.Output** %arrayidx11, align 2
  %call = call i16 @_ZNK6Output8switchesEv(%class.Output* nonnull align 2 dereferenceable(8) %11)
  %12 = load i16, i16* %sum, align 2
  %add = add i16 %12, %call
  store i16 %add, i16* %sum, align 2
  br label %for.inc12

for.inc12:
  %13 = load i16, i16* %i7, align 2
  %inc13 = add nsw i16 %13, 1
  store i16 %inc13, i16* %i7, align 2
  br label %for.cond8

for.end14:
  %14 = load i16, i16* %sum, align 2
  ret i16 %14
}

declare void @wait_for_tick() #3

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN6Output4tickEv(%class.Output* nonnull align 2 dereferenceable(8) %this) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Output*, align 2
  store %class.Output* %this, %class.Output** %this.addr, align 2
  %this1 = load %class.Output*, %class.Output** %this.addr, align 2
  %left = getelementptr inbounds %class.Output, %class.Output* %this1, i32 0, i32 2
  %0 = load i16, i16* %left, align 2
  %dec = add nsw i16 %0, -1
  store i16 %dec, i16* %left, align 2
  %cmp = icmp sgt i16 %dec, 0
  br i1 %cmp, label %if.then, label %if.end

if.then:
  br label %return

if.end:
  %period = getelementptr inbounds %class.Output, %class.Output* %this1, i32 0, i32 1
  %1 = load i16, i16* %period, align 2
  %left2 = getelementptr inbounds %class.Output, %class.Output* %this1, i32 0, i32 2
  store i16 %1, i16* %left2, align 2
  %switched = getelementptr inbounds %class.Output, %class.Output* %this1, i32 0, i32 3
  %2 = load i16, i16* %switched, align 2
  %inc = add i16 %2, 1
  store i16 %inc, i16* %switched, align 2
  %3 = bitcast %class.Output* %this1 to i1 (%class.Output*)***
  %vtable = load i1 (%class.Output*)**, i1 (%class.Output*)*** %3, align 2
  %vfn = getelementptr inbounds i1 (%class.Output*)*, i1 (%class.Output*)** %vtable, i64 1
  %4 = load i1 (%class.Output*)*, i1 (%class.Output*)** %vfn, align 2
  %call = call zeroext i1 %4(%class.Output* nonnull align 2 dereferenceable(8) %this1)
  %lnot = xor i1 %call, true
  %5 = bitcast %class.Output* %this1 to void (%class.Output*, i1)***
  %vtable3 = load void (%class.Output*, i1)**, void (%class.Output*, i1)*** %5, align 2
  %vfn4 = getelementptr inbounds void (%class.Output*, i1)*, void (%class.Output*, i1)** %vtable3, i64 0
  %6 = load void (%class.Output*, i1)*, void (%class.Output*, i1)** %vfn4, align 2
  call void %6(%class.Output* nonnull align 2 dereferenceable(8) %this1, i1 zeroext %lnot)
  br label %return

return:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr i16 @_ZNK6Output8switchesEv(%class.Output* nonnull align 2 dereferenceable(8) %this) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Output*, align 2
  store %class.Output* %this, %class.Output** %this.addr, align 2
  %this1 = load %class.Output*, %class.Output** %this.addr, align 2
  %switched = getelementptr inbounds %class.Output, %class.Output* %this1, i32 0, i32 3
  %0 = load i16, i16* %switched, align 2
  ret i16 %0
}

; Function Attrs: noinline nounwind optnone
define linkonce_odr void @_ZN6OutputC2Ei(%class.Output* nonnull align 2 dereferenceable(8) %this, i16 %on_ticks) unnamed_addr #1 comdat align 2 {
entry:
  %this.addr = alloca %class.Output*, align 2
  %on_ticks.addr = alloca i16, align 2
  store %class.Output* %this, %class.Output** %this.addr, align 2
  store i16 %on_ticks, i16* %on_ticks.addr, align 2
  %this1 = load %class.Output*, %class.Output** %this.addr, align 2
  %0 = bitcast %class.Output* %this1 to i32 (...)***
  store i32 (...)** bitcast (i8** getelementptr inbounds ({ [4 x i8*] }, { [4 x i8*] }* @_ZTV6Output, i32 0, inrange i32 0, i32 2) to i32 (...)**), i32 (...)*** %0, align 2
  %period = getelementptr inbounds %class.Output, %class.Output* %this1, i32 0, i32 1
  %1 = load i16, i16* %on_ticks.addr, align 2
  store i16 %1, i16* %period, align 2
  %left = getelementptr inbounds %class.Output, %class.Output* %this1, i32 0, i32 2
  %2 = load i16, i16* %on_ticks.addr, align 2
  store i16 %2, i16* %left, align 2
  %switched = getelementptr inbounds %class.Output, %class.Output* %this1, i32 0, i32 3
  store i16 0, i16* %switched, align 2
  call void @_ZN6Output13register_selfEv(%class.Output* nonnull align 2 dereferenceable(8) %this1)
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN3Led5writeEb(%class.Led* nonnull align 2 dereferenceable(8) %this, i1 zeroext %on) unnamed_addr #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Led*, align 2
  %on.addr = alloca i8, align 1
  store %class.Led* %this, %class.Led** %this.addr, align 2
  %frombool = zext i1 %on to i8
  store i8 %frombool, i8* %on.addr, align 1
  %this1 = load %class.Led*, %class.Led** %this.addr, align 2
  %0 = load i8, i8* %on.addr, align 1
  %tobool = trunc i8 %0 to i1
  br i1 %tobool, label %if.then, label %if.else

if.then:
  call void @_ZN4port3PinIL_ZNS_5out_aEELi3EE3setEv()
  br label %if.end

if.else:
  call void @_ZN4port3PinIL_ZNS_5out_aEELi3EE5clearEv()
  br label %if.end

if.end:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr zeroext i1 @_ZNK3Led5stateEv(%class.Led* nonnull align 2 dereferenceable(8) %this) unnamed_addr #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Led*, align 2
  store %class.Led* %this, %class.Led** %this.addr, align 2
  %this1 = load %class.Led*, %class.Led** %this.addr, align 2
  %call = call zeroext i1 @_ZN4port3PinIL_ZNS_5out_aEELi3EE4readEv()
  ret i1 %call
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN6Output13register_selfEv(%class.Output* nonnull align 2 dereferenceable(8) %this) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Output*, align 2
  store %class.Output* %this, %class.Output** %this.addr, align 2
  %this1 = load %class.Output*, %class.Output** %this.addr, align 2
  %0 = load i16, i16* @_ZN6Output5countE, align 2
  %cmp = icmp slt i16 %0, 4
  br i1 %cmp, label %if.then, label %if.end

if.then:
  %1 = load i16, i16* @_ZN6Output5countE, align 2
  %inc = add nsw i16 %1, 1
  store i16 %inc, i16* @_ZN6Output5countE, align 2
  %arrayidx = getelementptr inbounds [4 x %class.Output*], [4 x %class.Output*]* @_ZN6Output3allE, i16 0, i16 %1
  store %class.Output* %this1, %class.Output** %arrayidx, align 2
  br label %if.end

if.end:
  ret void
}

declare void @__cxa_pure_virtual() unnamed_addr

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN4port3PinIL_ZNS_5out_aEELi3EE3setEv() #2 comdat align 2 {
entry:
  %0 = load volatile i8, i8* @_ZN4port5out_aE, align 1
  %conv = zext i8 %0 to i16
  %or = or i16 %conv, 8
  %conv1 = trunc i16 %or to i8
  store volatile i8 %conv1, i8* @_ZN4port5out_aE, align 1
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN4port3PinIL_ZNS_5out_aEELi3EE5clearEv() #2 comdat align 2 {
entry:
  %0 = load volatile i8, i8* @_ZN4port5out_aE, align 1
  %conv = zext i8 %0 to i16
  %and = and i16 %conv, -9
  %conv1 = trunc i16 %and to i8
  store volatile i8 %conv1, i8* @_ZN4port5out_aE, align 1
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr zeroext i1 @_ZN4port3PinIL_ZNS_5out_aEELi3EE4readEv() #2 comdat align 2 {
entry:
  %0 = load volatile i8, i8* @_ZN4port5out_aE, align 1
  %conv = zext i8 %0 to i16
  %and = and i16 %conv, 8
  %cmp = icmp ne i16 %and, 0
  ret i1 %cmp
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN5Relay5writeEb(%class.Relay* nonnull align 2 dereferenceable(11) %this, i1 zeroext %wanted) unnamed_addr #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Relay*, align 2
  %wanted.addr = alloca i8, align 1
  store %class.Relay* %this, %class.Relay** %this.addr, align 2
  %frombool = zext i1 %wanted to i8
  store i8 %frombool, i8* %wanted.addr, align 1
  %this1 = load %class.Relay*, %class.Relay** %this.addr, align 2
  %0 = load i8, i8* %wanted.addr, align 1
  %tobool = trunc i8 %0 to i1
  br i1 %tobool, label %land.lhs.true, label %if.end

land.lhs.true:
  %holding = getelementptr inbounds %class.Relay, %class.Relay* %this1, i32 0, i32 1
  %1 = load i16, i16* %holding, align 2
  %cmp = icmp sgt i16 %1, 0
  br i1 %cmp, label %if.then, label %if.end

if.then:
  %holding2 = getelementptr inbounds %class.Relay, %class.Relay* %this1, i32 0, i32 1
  %2 = load i16, i16* %holding2, align 2
  %dec = add nsw i16 %2, -1
  store i16 %dec, i16* %holding2, align 2
  br label %if.end8

if.end:
  %3 = load i8, i8* %wanted.addr, align 1
  %tobool3 = trunc i8 %3 to i1
  %on = getelementptr inbounds %class.Relay, %class.Relay* %this1, i32 0, i32 2
  %frombool4 = zext i1 %tobool3 to i8
  store i8 %frombool4, i8* %on, align 2
  %on5 = getelementptr inbounds %class.Relay, %class.Relay* %this1, i32 0, i32 2
  %4 = load i8, i8* %on5, align 2
  %tobool6 = trunc i8 %4 to i1
  br i1 %tobool6, label %if.then7, label %if.else

if.then7:
  call void @_ZN4port3PinIL_ZNS_5out_bEELi0EE3setEv()
  br label %if.end8

if.else:
  call void @_ZN4port3PinIL_ZNS_5out_bEELi0EE5clearEv()
  br label %if.end8

if.end8:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr zeroext i1 @_ZNK5Relay5stateEv(%class.Relay* nonnull align 2 dereferenceable(11) %this) unnamed_addr #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Relay*, align 2
  store %class.Relay* %this, %class.Relay** %this.addr, align 2
  %this1 = load %class.Relay*, %class.Relay** %this.addr, align 2
  %on = getelementptr inbounds %class.Relay, %class.Relay* %this1, i32 0, i32 2
  %0 = load i8, i8* %on, align 2
  %tobool = trunc i8 %0 to i1
  ret i1 %tobool
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN4port3PinIL_ZNS_5out_bEELi0EE3setEv() #2 comdat align 2 {
entry:
  %0 = load volatile i8, i8* @_ZN4port5out_bE, align 1
  %conv = zext i8 %0 to i16
  %or = or i16 %conv, 1
  %conv1 = trunc i16 %or to i8
  store volatile i8 %conv1, i8* @_ZN4port5out_bE, align 1
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN4port3PinIL_ZNS_5out_bEELi0EE5clearEv() #2 comdat align 2 {
entry:
  %0 = load volatile i8, i8* @_ZN4port5out_bE, align 1
  %conv = zext i8 %0 to i16
  %and = and i16 %conv, -2
  %conv1 = trunc i16 %and to i8
  store volatile i8 %conv1, i8* @_ZN4port5out_bE, align 1
  ret void
}

; Function Attrs: noinline nounwind
define internal void @_GLOBAL__sub_I_blink.cpp() #0 {
entry:
  call void @__cxx_global_var_init()
  call void @__cxx_global_var_init.1()
  call void @__cxx_global_var_init.2()
  ret void
}

attributes #0 = { noinline nounwind "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }
attributes #1 = { noinline nounwind optnone "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }
attributes #2 = { mustprogress noinline nounwind optnone "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }
attributes #3 = { "frame-pointer"="none" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }

!llvm.module.flags = !{!0, !1, !2}
!llvm.ident = !{!3}

!0 = !{i32 1, !"SemanticInterposition", i32 1}
!1 = !{i32 1, !"wchar_size", i32 2}
!2 = !{i32 7, !"PIC Level", i32 2}
!3 = !{!"Debian clang version 14.0.6"}
!4 = distinct !{!4, !5}
!5 = !{!"llvm.loop.mustprogress"}
!6 = distinct !{!6, !5}
!7 = distinct !{!7, !5}
