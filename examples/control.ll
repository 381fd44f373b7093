; ModuleID = 'control.cpp'
source_filename = "control.cpp"
target datalayout = "e-m:e-p:16:16-i32:16-i64:16-f32:16-f64:16-a:8-n8:16-S16"
target triple = "msp430"

declare { %class.Fixed*, %struct.Gains*, %struct.Limits* } @llvm.dbg.order()
%class.Controller = type { %struct.Gains, %struct.Limits, %class.Fixed, %class.Fixed }
%struct.Gains = type { %class.Fixed, %class.Fixed, %class.Fixed }
%class.Fixed = type { i32 }
%struct.Limits = type { i16, i16 }

$_ZN5FixedC2Ei = comdat any

$_ZN5Fixed8from_rawEl = comdat any

$_ZN10ControllerC2ERK5GainsRK6Limits = comdat any

$_ZN10Controller5resetEv = comdat any

$_ZN10Controller4stepEii = comdat any

$_ZN5FixedC2Ev = comdat any

$_ZNK5FixedmiERKS_ = comdat any

$_ZNK5FixedmlERKS_ = comdat any

$_ZN5FixedpLERKS_ = comdat any

$_Z5clampI5FixedET_RKS1_S3_S3_ = comdat any

$_ZNK5FixedplERKS_ = comdat any

$_Z5clampIiET_RKS0_S2_S2_ = comdat any

$_ZNK5Fixed5wholeEv = comdat any

$_ZNK5FixedltERKS_ = comdat any

$_ZNK5FixedgtERKS_ = comdat any

@_ZL12heater_gains = internal global %struct.Gains zeroinitializer, align 2
@_ZL6heater = internal global %class.Controller zeroinitializer, align 2
@_ZL13heater_limits = internal constant %struct.Limits { i16 0, i16 100 }, align 2
@llvm.global_ctors = appending global [1 x { i32, void ()*, i8* }] [{ i32, void ()*, i8* } { i32 65535, void ()* @_GLOBAL__sub_I_control.cpp, i8* null }]

; Function Attrs: noinline nounwind
define internal void @__cxx_global_var_init() #0 {
entry:
  call void @_ZN5FixedC2Ei(%class.Fixed* nonnull align 2 dereferenceable(4) getelementptr inbounds (%struct.Gains, %struct.Gains* @_ZL12heater_gains, i32 0, i32 0), i16 2)
  call void @_ZN5Fixed8from_rawEl(%class.Fixed* sret align 2 getelementptr inbounds (%struct.Gains, %struct.Gains* @_ZL12heater_gains, i32 0, i32 1), i32 16)
  call void @_ZN5Fixed8from_rawEl(%class.Fixed* sret align 2 getelementptr inbounds (%struct.Gains, %struct.Gains* @_ZL12heater_gains, i32 0, i32 2), i32 64)
  ret void
}

; Function Attrs: noinline nounwind optnone
define linkonce_odr void @_ZN5FixedC2Ei(%class.Fixed* nonnull align 2 dereferenceable(4) %this, i16 %whole) unnamed_addr #1 comdat align 2 {
entry:
  %this.addr = alloca %class.Fixed*, align 2
  %whole.addr = alloca i16, align 2
  store %class.Fixed* %this, %class.Fixed** %this.addr, align 2
  store i16 %whole, i16* %whole.addr, align 2
  %this1 = load %class.Fixed*, %class.Fixed** %this.addr, align 2
  %raw = getelementptr inbounds %class.Fixed, %class.Fixed* %this1, i32 0, i32 0
  %0 = load i16, i16* %whole.addr, align 2
  %mul = mul nsw i16 %0, 256
  %conv = sext i16 %mul to i32
  store i32 %conv, i32* %raw, align 2
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN5Fixed8from_rawEl(%class.Fixed* noalias sret align 2 %agg.result, i32 %bits) #2 comdat align 2 {
entry:
  %bits.addr = alloca i32, align 2
  store i32 %bits, i32* %bits.addr, align 2
  call void @_ZN5FixedC2Ev(%class.Fixed* nonnull align 2 dereferenceable(4) %agg.result)
  %0 = load i32, i32* %bits.addr, align 2
  %raw = getelementptr inbounds %class.Fixed, %class.Fixed* %agg.result, i32 0, i32 0
  store i32 %0, i32* %raw, align 2
  ret void
}

; Function Attrs: noinline nounwind
define internal void @__cxx_global_var_init.1() #0 {
entry:
  call void @_ZN10ControllerC2ERK5GainsRK6Limits(%class.Controller* nonnull align 2 dereferenceable(24) @_ZL6heater, %struct.Gains* nonnull align 2 dereferenceable(12) @_ZL12heater_gains, %struct.Limits* nonnull align 2 dereferenceable(4) @_ZL13heater_limits)
  ret void
}

; Function Attrs: noinline nounwind optnone
define linkonce_odr void @_ZN10ControllerC2ERK5GainsRK6Limits(%class.Controller* nonnull align 2 dereferenceable(24) %this, %struct.Gains* nonnull align 2 dereferenceable(12) %wanted, %struct.Limits* nonnull align 2 dereferenceable(4) %range) unnamed_addr #1 comdat align 2 {
entry:
  %this.addr = alloca %class.Controller*, align 2
  %wanted.addr = alloca %struct.Gains*, align 2
  %range.addr = alloca %struct.Limits*, align 2
  store %class.Controller* %this, %class.Controller** %this.addr, align 2
  store %struct.Gains* %wanted, %struct.Gains** %wanted.addr, align 2
  store %struct.Limits* %range, %struct.Limits** %range.addr, align 2
  %this1 = load %class.Controller*, %class.Controller** %this.addr, align 2
  %gains = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 0
  %0 = load %struct.Gains*, %struct.Gains** %wanted.addr, align 2
  %1 = bitcast %struct.Gains* %gains to i8*
  %2 = bitcast %struct.Gains* %0 to i8*
  call void @llvm.memcpy.p0i8.p0i8.i16(i8* align 2 %1, i8* align 2 %2, i16 12, i1 false)
  %limits = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 1
  %3 = load %struct.Limits*, %struct.Limits** %range.addr, align 2
  %4 = bitcast %struct.Limits* %limits to i8*
  %5 = bitcast %struct.Limits* %3 to i8*
  call void @llvm.memcpy.p0i8.p0i8.i16(i8* align 2 %4, i8* align 2 %5, i16 4, i1 false)
  %sum = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 2
  call void @_ZN5FixedC2Ei(%class.Fixed* nonnull align 2 dereferenceable(4) %sum, i16 0)
  %last = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 3
  call void @_ZN5FixedC2Ei(%class.Fixed* nonnull align 2 dereferenceable(4) %last, i16 0)
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define void @control(i16 %target) #2 {
entry:
  %target.addr = alloca i16, align 2
  %measured = alloca i16, align 2
  store i16 %target, i16* %target.addr, align 2
  %call = call i16 @read_temperature()
  store i16 %call, i16* %measured, align 2
  %0 = load i16, i16* %measured, align 2
  %cmp = icmp slt i16 %0, -40
  br i1 %cmp, label %if.then, label %lor.lhs.false

lor.lhs.false:
  %1 = load i16, i16* %measured, align 2
  %cmp1 = icmp sgt i16 %1, 125
  br i1 %cmp1, label %if.then, label %if.end

if.then:
  call void @_ZN10Controller5resetEv(%class.Controller* nonnull align 2 dereferenceable(24) @_ZL6heater)
  call void @set_heater(i16 0)
  br label %return

if.end:
  %2 = load i16, i16* %target.addr, align 2
  %3 = load i16, i16* %measured, align 2
  %call2 = call i16 @_ZN10Controller4stepEii(%class.Controller* nonnull align 2 dereferenceable(24) @_ZL6heater, i16 %2, i16 %3)
  call void @set_heater(i16 %call2)
  br label %return

return:
  ret void
}

; Function Attrs: nofree nosync nounwind readnone speculatable willreturn

declare i16 @read_temperature() #4

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN10Controller5resetEv(%class.Controller* nonnull align 2 dereferenceable(24) %this) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Controller*, align 2
  %ref.tmp = alloca %class.Fixed, align 2
  %ref.tmp2 = alloca %class.Fixed, align 2
  store %class.Controller* %this, %class.Controller** %this.addr, align 2
  %this1 = load %class.Controller*, %class.Controller** %this.addr, align 2
  call void @_ZN5FixedC2Ei(%class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp, i16 0)
  %sum = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 2
  %0 = bitcast %class.Fixed* %sum to i8*
  %1 = bitcast %class.Fixed* %ref.tmp to i8*
  call void @llvm.memcpy.p0i8.p0i8.i16(i8* align 2 %0, i8* align 2 %1, i16 4, i1 false)
  call void @_ZN5FixedC2Ei(%class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp2, i16 0)
  %last = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 3
  %2 = bitcast %class.Fixed* %last to i8*
  %3 = bitcast %class.Fixed* %ref.tmp2 to i8*
  call void @llvm.memcpy.p0i8.p0i8.i16(i8* align 2 %2, i8* align 2 %3, i16 4, i1 false)
  ret void
}

declare void @set_heater(i16) #4

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr i16 @_ZN10Controller4stepEii(%class.Controller* nonnull align 2 dereferenceable(24) %this, i16 %target, i16 %measured) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Controller*, align 2
  %target.addr = alloca i16, align 2
  %measured.addr = alloca i16, align 2
  %error = alloca %class.Fixed, align 2
  %ref.tmp = alloca %class.Fixed, align 2
  %ref.tmp2 = alloca %class.Fixed, align 2
  %ref.tmp3 = alloca %class.Fixed, align 2
  %ref.tmp4 = alloca %class.Fixed, align 2
  %ref.tmp6 = alloca %class.Fixed, align 2
  %ref.tmp7 = alloca %class.Fixed, align 2
  %change = alloca %class.Fixed, align 2
  %drive = alloca %class.Fixed, align 2
  %ref.tmp11 = alloca %class.Fixed, align 2
  %ref.tmp12 = alloca %class.Fixed, align 2
  %ref.tmp15 = alloca %class.Fixed, align 2
  %ref.tmp17 = alloca i16, align 2
  store %class.Controller* %this, %class.Controller** %this.addr, align 2
  store i16 %target, i16* %target.addr, align 2
  store i16 %measured, i16* %measured.addr, align 2
  %this1 = load %class.Controller*, %class.Controller** %this.addr, align 2
  %0 = load i16, i16* %target.addr, align 2
  call void @_ZN5FixedC2Ei(%class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp, i16 %0)
  %1 = load i16, i16* %measured.addr, align 2
  call void @_ZN5FixedC2Ei(%class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp2, i16 %1)
  call void @_ZNK5FixedmiERKS_(%class.Fixed* sret align 2 %error, %class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp, %class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp2)
  %gains = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 0
  %integral = getelementptr inbounds %struct.Gains, %struct.Gains* %gains, i32 0, i32 1
  call void @_ZNK5FixedmlERKS_(%class.Fixed* sret align 2 %ref.tmp3, %class.Fixed* nonnull align 2 dereferenceable(4) %error, %class.Fixed* nonnull align 2 dereferenceable(4) %integral)
  %sum = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 2
  %call = call nonnull align 2 dereferenceable(4) %class.Fixed* @_ZN5FixedpLERKS_(%class.Fixed* nonnull align 2 dereferenceable(4) %sum, %class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp3)
  %sum5 = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 2
  %limits = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 1
  %low = getelementptr inbounds %struct.Limits, %struct.Limits* %limits, i32 0, i32 0
  %2 = load i16, i16* %low, align 2
  call void @_ZN5FixedC2Ei(%class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp6, i16 %2)
  %limits8 = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 1
  %high = getelementptr inbounds %struct.Limits, %struct.Limits* %limits8, i32 0, i32 1
  %3 = load i16, i16* %high, align 2
  call void @_ZN5FixedC2Ei(%class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp7, i16 %3)
  call void @_Z5clampI5FixedET_RKS1_S3_S3_(%class.Fixed* sret align 2 %ref.tmp4, %class.Fixed* nonnull align 2 dereferenceable(4) %sum5, %class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp6, %class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp7)
  %sum9 = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 2
  %4 = bitcast %class.Fixed* %sum9 to i8*
  %5 = bitcast %class.Fixed* %ref.tmp4 to i8*
  call void @llvm.memcpy.p0i8.p0i8.i16(i8* align 2 %4, i8* align 2 %5, i16 4, i1 false)
  %last = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 3
  call void @_ZNK5FixedmiERKS_(%class.Fixed* sret align 2 %change, %class.Fixed* nonnull align 2 dereferenceable(4) %error, %class.Fixed* nonnull align 2 dereferenceable(4) %last)
  %last10 = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 3
  %6 = bitcast %class.Fixed* %last10 to i8*
  %7 = bitcast %class.Fixed* %error to i8*
  call void @llvm.memcpy.p0i8.p0i8.i16(i8* align 2 %6, i8* align 2 %7, i16 4, i1 false)
  %gains13 = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 0
  %proportional = getelementptr inbounds %struct.Gains, %struct.Gains* %gains13, i32 0, i32 0
  call void @_ZNK5FixedmlERKS_(%class.Fixed* sret align 2 %ref.tmp12, %class.Fixed* nonnull align 2 dereferenceable(4) %error, %class.Fixed* nonnull align 2 dereferenceable(4) %proportional)
  %sum14 = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 2
  call void @_ZNK5FixedplERKS_(%class.Fixed* sret align 2 %ref.tmp11, %class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp12, %class.Fixed* nonnull align 2 dereferenceable(4) %sum14)
  %gains16 = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 0
  %derivative = getelementptr inbounds %struct.Gains, %struct.Gains* %gains16, i32 0, i32 2
  call void @_ZNK5FixedmlERKS_(%class.Fixed* sret align 2 %ref.tmp15, %class.Fixed* nonnull align 2 dereferenceable(4) %change, %class.Fixed* nonnull align 2 dereferenceable(4) %derivative)
  call void @_ZNK5FixedplERKS_(%class.Fixed* sret align 2 %drive, %class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp11, %class.Fixed* nonnull align 2 dereferenceable(4) %ref.tmp15)
  %call18 = call i16 @_ZNK5Fixed5wholeEv(%class.Fixed* nonnull align 2 dereferenceable(4) %drive)
  store i16 %call18, i16* %ref.tmp17, align 2
  %limits19 = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 1
  %low20 = getelementptr inbounds %struct.Limits, %struct.Limits* %limits19, i32 0, i32 0
  %limits21 = getelementptr inbounds %class.Controller, %class.Controller* %this1, i32 0, i32 1
  %high22 = getelementptr inbounds %struct.Limits, %struct.Limits* %limits21, i32 0, i32 1
  %call23 = call i16 @_Z5clampIiET_RKS0_S2_S2_(i16* nonnull align 2 dereferenceable(2) %ref.tmp17, i16* nonnull align 2 dereferenceable(2) %low20, i16* nonnull align 2 dereferenceable(2) %high22)
  ret i16 %call23
}

; Function Attrs: noinline nounwind optnone
define linkonce_odr void @_ZN5FixedC2Ev(%class.Fixed* nonnull align 2 dereferenceable(4) %this) unnamed_addr #1 comdat align 2 {
entry:
  %this.addr = alloca %class.Fixed*, align 2
  store %class.Fixed* %this, %class.Fixed** %this.addr, align 2
  %this1 = load %class.Fixed*, %class.Fixed** %this.addr, align 2
  %raw = getelementptr inbounds %class.Fixed, %class.Fixed* %this1, i32 0, i32 0
  store i32 0, i32* %raw, align 2
  ret void
}

; Function Attrs: argmemonly nofree nounwind willreturn
declare void @llvm.memcpy.p0i8.p0i8.i16(i8* noalias nocapture writeonly, i8* noalias nocapture readonly, i16, i1) #5

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZNK5FixedmiERKS_(%class.Fixed* noalias sret align 2 %agg.result, %class.Fixed* nonnull align 2 dereferenceable(4) %this, %class.Fixed* nonnull align 2 dereferenceable(4) %other) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Fixed*, align 2
  %other.addr = alloca %class.Fixed*, align 2
  store %class.Fixed* %this, %class.Fixed** %this.addr, align 2
  store %class.Fixed* %other, %class.Fixed** %other.addr, align 2
  %this1 = load %class.Fixed*, %class.Fixed** %this.addr, align 2
  %raw = getelementptr inbounds %class.Fixed, %class.Fixed* %this1, i32 0, i32 0
  %0 = load i32, i32* %raw, align 2
  %1 = load %class.Fixed*, %class.Fixed** %other.addr, align 2
  %raw2 = getelementptr inbounds %class.Fixed, %class.Fixed* %1, i32 0, i32 0
  %2 = load i32, i32* %raw2, align 2
  %sub = sub nsw i32 %0, %2
  call void @_ZN5Fixed8from_rawEl(%class.Fixed* sret align 2 %agg.result, i32 %sub)
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZNK5FixedmlERKS_(%class.Fixed* noalias sret align 2 %agg.result, %class.Fixed* nonnull align 2 dereferenceable(4) %this, %class.Fixed* nonnull align 2 dereferenceable(4) %other) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Fixed*, align 2
  %other.addr = alloca %class.Fixed*, align 2
  store %class.Fixed* %this, %class.Fixed** %this.addr, align 2
  store %class.Fixed* %other, %class.Fixed** %other.addr, align 2
  %this1 = load %class.Fixed*, %class.Fixed** %this.addr, align 2
  %raw = getelementptr inbounds %class.Fixed, %class.Fixed* %this1, i32 0, i32 0
  %0 = load i32, i32* %raw, align 2
  %1 = load %class.Fixed*, %class.Fixed** %other.addr, align 2
  %raw2 = getelementptr inbounds %class.Fixed, %class.Fixed* %1, i32 0, i32 0
  %2 = load i32, i32* %raw2, align 2
  %mul = mul nsw i32 %0, %2
  %div = sdiv i32 %mul, 256
  call void @_ZN5Fixed8from_rawEl(%class.Fixed* sret align 2 %agg.result, i32 %div)
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr nonnull align 2 dereferenceable(4) %class.Fixed* @_ZN5FixedpLERKS_(%class.Fixed* nonnull align 2 dereferenceable(4) %this, %class.Fixed* nonnull align 2 dereferenceable(4) %other) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Fixed*, align 2
  %other.addr = alloca %class.Fixed*, align 2
  store %class.Fixed* %this, %class.Fixed** %this.addr, align 2
  store %class.Fixed* %other, %class.Fixed** %other.addr, align 2
  %this1 = load %class.Fixed*, %class.Fixed** %this.addr, align 2
  %0 = load %class.Fixed*, %class.Fixed** %other.addr, align 2
  %raw = getelementptr inbounds %class.Fixed, %class.Fixed* %0, i32 0, i32 0
  %1 = load i32, i32* %raw, align 2
  %raw2 = getelementptr inbounds %class.Fixed, %class.Fixed* %this1, i32 0, i32 0
  %2 = load i32, i32* %raw2, align 2
  %add = add nsw i32 %2, %1
  store i32 %add, i32* %raw2, align 2
  ret %class.Fixed* %this1
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_Z5clampI5FixedET_RKS1_S3_S3_(%class.Fixed* noalias sret align 2 %agg.result, %class.Fixed* nonnull align 2 dereferenceable(4) %value, %class.Fixed* nonnull align 2 dereferenceable(4) %low, %class.Fixed* nonnull align 2 dereferenceable(4) %high) #2 comdat {
entry:
  %value.addr = alloca %class.Fixed*, align 2
  %low.addr = alloca %class.Fixed*, align 2
  %high.addr = alloca %class.Fixed*, align 2
  store %class.Fixed* %value, %class.Fixed** %value.addr, align 2
  store %class.Fixed* %low, %class.Fixed** %low.addr, align 2
  store %class.Fixed* %high, %class.Fixed** %high.addr, align 2
  %0 = load %class.Fixed*, %class.Fixed** %value.addr, align 2
  %1 = load %class.Fixed*, %class.Fixed** %low.addr, align 2
  %call = call zeroext i1 @_ZNK5FixedltERKS_(%class.Fixed* nonnull align 2 dereferenceable(4) %0, %class.Fixed* nonnull align 2 dereferenceable(4) %1)
  br i1 %call, label %if.then, label %if.end

if.then:
  %2 = load %class.Fixed*, %class.Fixed** %low.addr, align 2
  %3 = bitcast %class.Fixed* %agg.result to i8*
  %4 = bitcast %class.Fixed* %2 to i8*
  call void @llvm.memcpy.p0i8.p0i8.i16(i8* align 2 %3, i8* align 2 %4, i16 4, i1 false)
  br label %return

if.end:
  %5 = load %class.Fixed*, %class.Fixed** %value.addr, align 2
  %6 = load %class.Fixed*, %class.Fixed** %high.addr, align 2
  %call1 = call zeroext i1 @_ZNK5FixedgtERKS_(%class.Fixed* nonnull align 2 dereferenceable(4) %5, %class.Fixed* nonnull align 2 dereferenceable(4) %6)
  br i1 %call1, label %if.then2, label %if.end3

if.then2:
  %7 = load %class.Fixed*, %class.Fixed** %high.addr, align 2
  %8 = bitcast %class.Fixed* %agg.result to i8*
  %9 = bitcast %class.Fixed* %7 to i8*
  call void @llvm.memcpy.p0i8.p0i8.i16(i8* align 2 %8, i8* align 2 %9, i16 4, i1 false)
  br label %return

if.end3:
  %10 = load %class.Fixed*, %class.Fixed** %value.addr, align 2
  %11 = bitcast %class.Fixed* %agg.result to i8*
  %12 = bitcast %class.Fixed* %10 to i8*
  call void @llvm.memcpy.p0i8.p0i8.i16(i8* align 2 %11, i8* align 2 %12, i16 4, i1 false)
  br label %return

return:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZNK5FixedplERKS_(%class.Fixed* noalias sret align 2 %agg.result, %class.Fixed* nonnull align 2 dereferenceable(4) %this, %class.Fixed* nonnull align 2 dereferenceable(4) %other) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Fixed*, align 2
  %other.addr = alloca %class.Fixed*, align 2
  store %class.Fixed* %this, %class.Fixed** %this.addr, align 2
  store %class.Fixed* %other, %class.Fixed** %other.addr, align 2
  %this1 = load %class.Fixed*, %class.Fixed** %this.addr, align 2
  %raw = getelementptr inbounds %class.Fixed, %class.Fixed* %this1, i32 0, i32 0
  %0 = load i32, i32* %raw, align 2
  %1 = load %class.Fixed*, %class.Fixed** %other.addr, align 2
  %raw2 = getelementptr inbounds %class.Fixed, %class.Fixed* %1, i32 0, i32 0
  %2 = load i32, i32* %raw2, align 2
  %add = add nsw i32 %0, %2
  call void @_ZN5Fixed8from_rawEl(%class.Fixed* sret align 2 %agg.result, i32 %add)
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr i16 @_Z5clampIiET_RKS0_S2_S2_(i16* nonnull align 2 dereferenceable(2) %value, i16* nonnull align 2 dereferenceable(2) %low, i16* nonnull align 2 dereferenceable(2) %high) #2 comdat {
entry:
  %retval = alloca i16, align 2
  %value.addr = alloca i16*, align 2
  %low.addr = alloca i16*, align 2
  %high.addr = alloca i16*, align 2
  store i16* %value, i16** %value.addr, align 2
  store i16* %low, i16** %low.addr, align 2
  store i16* %high, i16** %high.addr, align 2
  %0 = load i16*, i16** %value.addr, align 2
  %1 = load i16, i16* %0, align 2
  %2 = load i16*, i16** %low.addr, align 2
  %3 = load i16, i16* %2, align 2
  %cmp = icmp slt i16 %1, %3
  br i1 %cmp, label %if.then, label %if.end

if.then:
  %4 = load i16*, i16** %low.addr, align 2
  %5 = load i16, i16* %4, align 2
  store i16 %5, i16* %retval, align 2
  br label %return

if.end:
  %6 = load i16*, i16** %value.addr, align 2
  %7 = load i16, i16* %6, align 2
  %8 = load i16*, i16** %high.addr, align 2
  %9 = load i16, i16* %8, align 2
  %cmp1 = icmp sgt i16 %7, %9
  br i1 %cmp1, label %if.then2, label %if.end3

if.then2:
  %10 = load i16*, i16** %high.addr, align 2
  %11 = load i16, i16* %10, align 2
  store i16 %11, i16* %retval, align 2
  br label %return

if.end3:
  %12 = load i16*, i16** %value.addr, align 2
  %13 = load i16, i16* %12, align 2
  store i16 %13, i16* %retval, align 2
  br label %return

return:
  %14 = load i16, i16* %retval, align 2
  ret i16 %14
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr i16 @_ZNK5Fixed5wholeEv(%class.Fixed* nonnull align 2 dereferenceable(4) %this) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Fixed*, align 2
  store %class.Fixed* %this, %class.Fixed** %this.addr, align 2
  %this1 = load %class.Fixed*, %class.Fixed** %this.addr, align 2
  %raw = getelementptr inbounds %class.Fixed, %class.Fixed* %this1, i32 0, i32 0
  %0 = load i32, i32* %raw, align 2
  %div = sdiv i32 %0, 256
  %conv = trunc i32 %div to i16
  ret i16 %conv
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr zeroext i1 @_ZNK5FixedltERKS_(%class.Fixed* nonnull align 2 dereferenceable(4) %this, %class.Fixed* nonnull align 2 dereferenceable(4) %other) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Fixed*, align 2
  %other.addr = alloca %class.Fixed*, align 2
  store %class.Fixed* %this, %class.Fixed** %this.addr, align 2
  store %class.Fixed* %other, %class.Fixed** %other.addr, align 2
  %this1 = load %class.Fixed*, %class.Fixed** %this.addr, align 2
  %raw = getelementptr inbounds %class.Fixed, %class.Fixed* %this1, i32 0, i32 0
  %0 = load i32, i32* %raw, align 2
  %1 = load %class.Fixed*, %class.Fixed** %other.addr, align 2
  %raw2 = getelementptr inbounds %class.Fixed, %class.Fixed* %1, i32 0, i32 0
  %2 = load i32, i32* %raw2, align 2
  %cmp = icmp slt i32 %0, %2
  ret i1 %cmp
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr zeroext i1 @_ZNK5FixedgtERKS_(%class.Fixed* nonnull align 2 dereferenceable(4) %this, %class.Fixed* nonnull align 2 dereferenceable(4) %other) #2 comdat align 2 {
entry:
  %this.addr = alloca %class.Fixed*, align 2
  %other.addr = alloca %class.Fixed*, align 2
  store %class.Fixed* %this, %class.Fixed** %this.addr, align 2
  store %class.Fixed* %other, %class.Fixed** %other.addr, align 2
  %this1 = load %class.Fixed*, %class.Fixed** %this.addr, align 2
  %raw = getelementptr inbounds %class.Fixed, %class.Fixed* %this1, i32 0, i32 0
  %0 = load i32, i32* %raw, align 2
  %1 = load %class.Fixed*, %class.Fixed** %other.addr, align 2
  %raw2 = getelementptr inbounds %class.Fixed, %class.Fixed* %1, i32 0, i32 0
  %2 = load i32, i32* %raw2, align 2
  %cmp = icmp sgt i32 %0, %2
  ret i1 %cmp
}

; Function Attrs: noinline nounwind
define internal void @_GLOBAL__sub_I_control.cpp() #0 {
entry:
  call void @__cxx_global_var_init()
  call void @__cxx_global_var_init.1()
  ret void
}

attributes #0 = { noinline nounwind "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }
attributes #1 = { noinline nounwind optnone "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }
attributes #2 = { mustprogress noinline nounwind optnone "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }
attributes #3 = { nofree nosync nounwind readnone speculatable willreturn }
attributes #4 = { "frame-pointer"="none" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }
attributes #5 = { argmemonly nofree nounwind willreturn }

!llvm.dbg.cu = !{!2}
!llvm.module.flags = !{!78, !79, !80, !81, !82}
!llvm.ident = !{!83}

!0 = !DIGlobalVariableExpression(var: !1, expr: !DIExpression())
!1 = distinct !DIGlobalVariable(name: "heater_gains", linkageName: "_ZL12heater_gains", scope: !2, file: !3, line: 85, type: !64, isLocal: true, isDefinition: true)
!2 = distinct !DICompileUnit(language: DW_LANG_C_plus_plus_14, file: !3, producer: "Debian clang version 14.0.6", isOptimized: false, runtimeVersion: 0, emissionKind: FullDebug, retainedTypes: !4, globals: !73, splitDebugInlining: false, nameTableKind: None)
!3 = !DIFile(filename: "control.cpp", directory: ".", checksumkind: CSK_MD5, checksum: "9df6abea78ec533da4d7d9f42777b757")
!4 = !{!5, !44}
!5 = distinct !DICompositeType(tag: DW_TAG_class_type, name: "Fixed", file: !3, line: 6, size: 32, flags: DIFlagTypePassByValue | DIFlagNonTrivial, elements: !6, identifier: "_ZTS5Fixed")
!6 = !{!7, !9, !13, !17, !20, !26, !27, !30, !31, !32, !36, !40, !41}
!7 = !DIDerivedType(tag: DW_TAG_member, name: "raw", scope: !5, file: !3, line: 34, baseType: !8, size: 32)
!8 = !DIBasicType(name: "long", size: 32, encoding: DW_ATE_signed)
!9 = !DISubprogram(name: "Fixed", scope: !5, file: !3, line: 8, type: !10, scopeLine: 8, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!10 = !DISubroutineType(types: !11)
!11 = !{null, !12}
!12 = !DIDerivedType(tag: DW_TAG_pointer_type, baseType: !5, size: 16, flags: DIFlagArtificial | DIFlagObjectPointer)
!13 = !DISubprogram(name: "Fixed", scope: !5, file: !3, line: 9, type: !14, scopeLine: 9, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!14 = !DISubroutineType(types: !15)
!15 = !{null, !12, !16}
!16 = !DIBasicType(name: "int", size: 16, encoding: DW_ATE_signed)
!17 = !DISubprogram(name: "from_raw", linkageName: "_ZN5Fixed8from_rawEl", scope: !5, file: !3, line: 11, type: !18, scopeLine: 11, flags: DIFlagPublic | DIFlagPrototyped | DIFlagStaticMember, spFlags: 0)
!18 = !DISubroutineType(types: !19)
!19 = !{!5, !8}
!20 = !DISubprogram(name: "operator+", linkageName: "_ZNK5FixedplERKS_", scope: !5, file: !3, line: 18, type: !21, scopeLine: 18, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!21 = !DISubroutineType(types: !22)
!22 = !{!5, !23, !25}
!23 = !DIDerivedType(tag: DW_TAG_pointer_type, baseType: !24, size: 16, flags: DIFlagArtificial | DIFlagObjectPointer)
!24 = !DIDerivedType(tag: DW_TAG_const_type, baseType: !5)
!25 = !DIDerivedType(tag: DW_TAG_reference_type, baseType: !24, size: 16)
!26 = !DISubprogram(name: "operator-", linkageName: "_ZNK5FixedmiERKS_", scope: !5, file: !3, line: 19, type: !21, scopeLine: 19, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!27 = !DISubprogram(name: "operator-", linkageName: "_ZNK5FixedngEv", scope: !5, file: !3, line: 20, type: !28, scopeLine: 20, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!28 = !DISubroutineType(types: !29)
!29 = !{!5, !23}
!30 = !DISubprogram(name: "operator*", linkageName: "_ZNK5FixedmlERKS_", scope: !5, file: !3, line: 21, type: !21, scopeLine: 21, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!31 = !DISubprogram(name: "operator/", linkageName: "_ZNK5FixeddvERKS_", scope: !5, file: !3, line: 22, type: !21, scopeLine: 22, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!32 = !DISubprogram(name: "operator+=", linkageName: "_ZN5FixedpLERKS_", scope: !5, file: !3, line: 23, type: !33, scopeLine: 23, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!33 = !DISubroutineType(types: !34)
!34 = !{!35, !12, !25}
!35 = !DIDerivedType(tag: DW_TAG_reference_type, baseType: !5, size: 16)
!36 = !DISubprogram(name: "operator<", linkageName: "_ZNK5FixedltERKS_", scope: !5, file: !3, line: 28, type: !37, scopeLine: 28, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!37 = !DISubroutineType(types: !38)
!38 = !{!39, !23, !25}
!39 = !DIBasicType(name: "bool", size: 8, encoding: DW_ATE_boolean)
!40 = !DISubprogram(name: "operator>", linkageName: "_ZNK5FixedgtERKS_", scope: !5, file: !3, line: 29, type: !37, scopeLine: 29, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!41 = !DISubprogram(name: "whole", linkageName: "_ZNK5Fixed5wholeEv", scope: !5, file: !3, line: 31, type: !42, scopeLine: 31, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!42 = !DISubroutineType(types: !43)
!43 = !{!16, !23}
!44 = distinct !DICompositeType(tag: DW_TAG_class_type, name: "Controller", file: !3, line: 57, size: 192, flags: DIFlagTypePassByValue | DIFlagNonTrivial, elements: !45, identifier: "_ZTS10Controller")
!45 = !{!46, !52, !57, !58, !59, !67, !70}
!46 = !DIDerivedType(tag: DW_TAG_member, name: "gains", scope: !44, file: !3, line: 79, baseType: !47, size: 96)
!47 = distinct !DICompositeType(tag: DW_TAG_structure_type, name: "Gains", file: !3, line: 46, size: 96, flags: DIFlagTypePassByValue | DIFlagNonTrivial, elements: !48, identifier: "_ZTS5Gains")
!48 = !{!49, !50, !51}
!49 = !DIDerivedType(tag: DW_TAG_member, name: "proportional", scope: !47, file: !3, line: 47, baseType: !5, size: 32)
!50 = !DIDerivedType(tag: DW_TAG_member, name: "integral", scope: !47, file: !3, line: 48, baseType: !5, size: 32, offset: 32)
!51 = !DIDerivedType(tag: DW_TAG_member, name: "derivative", scope: !47, file: !3, line: 49, baseType: !5, size: 32, offset: 64)
!52 = !DIDerivedType(tag: DW_TAG_member, name: "limits", scope: !44, file: !3, line: 80, baseType: !53, size: 32, offset: 96)
!53 = distinct !DICompositeType(tag: DW_TAG_structure_type, name: "Limits", file: !3, line: 52, size: 32, flags: DIFlagTypePassByValue, elements: !54, identifier: "_ZTS6Limits")
!54 = !{!55, !56}
!55 = !DIDerivedType(tag: DW_TAG_member, name: "low", scope: !53, file: !3, line: 53, baseType: !16, size: 16)
!56 = !DIDerivedType(tag: DW_TAG_member, name: "high", scope: !53, file: !3, line: 54, baseType: !16, size: 16, offset: 16)
!57 = !DIDerivedType(tag: DW_TAG_member, name: "sum", scope: !44, file: !3, line: 81, baseType: !5, size: 32, offset: 128)
!58 = !DIDerivedType(tag: DW_TAG_member, name: "last", scope: !44, file: !3, line: 82, baseType: !5, size: 32, offset: 160)
!59 = !DISubprogram(name: "Controller", scope: !44, file: !3, line: 59, type: !60, scopeLine: 59, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!60 = !DISubroutineType(types: !61)
!61 = !{null, !62, !63, !65}
!62 = !DIDerivedType(tag: DW_TAG_pointer_type, baseType: !44, size: 16, flags: DIFlagArtificial | DIFlagObjectPointer)
!63 = !DIDerivedType(tag: DW_TAG_reference_type, baseType: !64, size: 16)
!64 = !DIDerivedType(tag: DW_TAG_const_type, baseType: !47)
!65 = !DIDerivedType(tag: DW_TAG_reference_type, baseType: !66, size: 16)
!66 = !DIDerivedType(tag: DW_TAG_const_type, baseType: !53)
!67 = !DISubprogram(name: "step", linkageName: "_ZN10Controller4stepEii", scope: !44, file: !3, line: 61, type: !68, scopeLine: 61, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!68 = !DISubroutineType(types: !69)
!69 = !{!16, !62, !16, !16}
!70 = !DISubprogram(name: "reset", linkageName: "_ZN10Controller5resetEv", scope: !44, file: !3, line: 72, type: !71, scopeLine: 72, flags: DIFlagPublic | DIFlagPrototyped, spFlags: 0)
!71 = !DISubroutineType(types: !72)
!72 = !{null, !62}
!73 = !{!0, !74, !76}
!74 = !DIGlobalVariableExpression(var: !75, expr: !DIExpression())
!75 = distinct !DIGlobalVariable(name: "heater", linkageName: "_ZL6heater", scope: !2, file: !3, line: 87, type: !44, isLocal: true, isDefinition: true)
!76 = !DIGlobalVariableExpression(var: !77, expr: !DIExpression())
!77 = distinct !DIGlobalVariable(name: "heater_limits", linkageName: "_ZL13heater_limits", scope: !2, file: !3, line: 86, type: !66, isLocal: true, isDefinition: true)
!78 = !{i32 7, !"Dwarf Version", i32 5}
!79 = !{i32 1, !"SemanticInterposition", i32 1}
!80 = !{i32 2, !"Debug Info Version", i32 3}
!81 = !{i32 1, !"wchar_size", i32 2}
!82 = !{i32 7, !"PIC Level", i32 2}
!83 = !{!"Debian clang version 14.0.6"}
!84 = distinct !DISubprogram(name: "__cxx_global_var_init", scope: !85, file: !85, type: !86, flags: DIFlagArtificial, spFlags: DISPFlagLocalToUnit | DISPFlagDefinition, unit: !2, retainedNodes: !88)
!85 = !DIFile(filename: "control.cpp", directory: ".")
!86 = !DISubroutineType(types: !87)
!87 = !{null}
!88 = !{}
!89 = !DILocation(line: 85, column: 36, scope: !90)
!90 = !DILexicalBlockFile(scope: !84, file: !3, discriminator: 0)
!91 = !DILocation(line: 85, column: 46, scope: !90)
!92 = !DILocation(line: 85, column: 67, scope: !90)
!93 = !DILocation(line: 85, column: 83, scope: !90)
!94 = distinct !DISubprogram(name: "Fixed", linkageName: "_ZN5FixedC2Ei", scope: !5, file: !3, line: 9, type: !14, scopeLine: 9, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !13, retainedNodes: !88)
!95 = !DILocalVariable(name: "this", arg: 1, scope: !94, type: !96, flags: DIFlagArtificial | DIFlagObjectPointer)
!96 = !DIDerivedType(tag: DW_TAG_pointer_type, baseType: !5, size: 16)
!97 = !DILocation(line: 0, scope: !94)
!98 = !DILocalVariable(name: "whole", arg: 2, scope: !94, file: !3, line: 9, type: !16)
!99 = !DILocation(line: 9, column: 15, scope: !94)
!100 = !DILocation(line: 9, column: 24, scope: !94)
!101 = !DILocation(line: 9, column: 28, scope: !94)
!102 = !DILocation(line: 9, column: 34, scope: !94)
!103 = !DILocation(line: 9, column: 42, scope: !94)
!104 = distinct !DISubprogram(name: "from_raw", linkageName: "_ZN5Fixed8from_rawEl", scope: !5, file: !3, line: 11, type: !18, scopeLine: 12, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !17, retainedNodes: !88)
!105 = !DILocalVariable(name: "bits", arg: 1, scope: !104, file: !3, line: 11, type: !8)
!106 = !DILocation(line: 11, column: 32, scope: !104)
!107 = !DILocalVariable(name: "result", scope: !104, file: !3, line: 13, type: !5)
!108 = !DILocation(line: 13, column: 15, scope: !104)
!109 = !DILocation(line: 14, column: 22, scope: !104)
!110 = !DILocation(line: 14, column: 16, scope: !104)
!111 = !DILocation(line: 14, column: 20, scope: !104)
!112 = !DILocation(line: 15, column: 9, scope: !104)
!113 = distinct !DISubprogram(name: "__cxx_global_var_init.1", scope: !85, file: !85, type: !86, flags: DIFlagArtificial, spFlags: DISPFlagLocalToUnit | DISPFlagDefinition, unit: !2, retainedNodes: !88)
!114 = !DILocation(line: 87, column: 19, scope: !115)
!115 = !DILexicalBlockFile(scope: !113, file: !3, discriminator: 0)
!116 = !DILocation(line: 87, column: 40, scope: !115)
!117 = distinct !DISubprogram(name: "Controller", linkageName: "_ZN10ControllerC2ERK5GainsRK6Limits", scope: !44, file: !3, line: 59, type: !60, scopeLine: 59, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !59, retainedNodes: !88)
!118 = !DILocalVariable(name: "this", arg: 1, scope: !117, type: !119, flags: DIFlagArtificial | DIFlagObjectPointer)
!119 = !DIDerivedType(tag: DW_TAG_pointer_type, baseType: !44, size: 16)
!120 = !DILocation(line: 0, scope: !117)
!121 = !DILocalVariable(name: "wanted", arg: 2, scope: !117, file: !3, line: 59, type: !63)
!122 = !DILocation(line: 59, column: 29, scope: !117)
!123 = !DILocalVariable(name: "range", arg: 3, scope: !117, file: !3, line: 59, type: !65)
!124 = !DILocation(line: 59, column: 51, scope: !117)
!125 = !DILocation(line: 59, column: 60, scope: !117)
!126 = !DILocation(line: 59, column: 66, scope: !117)
!127 = !DILocation(line: 59, column: 75, scope: !117)
!128 = !DILocation(line: 59, column: 82, scope: !117)
!129 = !DILocation(line: 59, column: 90, scope: !117)
!130 = !DILocation(line: 59, column: 98, scope: !117)
!131 = !DILocation(line: 59, column: 107, scope: !117)
!132 = distinct !DISubprogram(name: "control", scope: !3, file: !3, line: 92, type: !133, scopeLine: 93, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, retainedNodes: !88)
!133 = !DISubroutineType(types: !134)
!134 = !{null, !16}
!135 = !DILocalVariable(name: "target", arg: 1, scope: !132, file: !3, line: 92, type: !16)
!136 = !DILocation(line: 92, column: 29, scope: !132)
!137 = !DILocalVariable(name: "measured", scope: !132, file: !3, line: 94, type: !138)
!138 = !DIDerivedType(tag: DW_TAG_const_type, baseType: !16)
!139 = !DILocation(line: 94, column: 15, scope: !132)
!140 = !DILocation(line: 94, column: 26, scope: !132)
!141 = !DILocation(line: 95, column: 9, scope: !142)
!142 = distinct !DILexicalBlock(scope: !132, file: !3, line: 95, column: 9)
!143 = !DILocation(line: 95, column: 18, scope: !142)
!144 = !DILocation(line: 95, column: 24, scope: !142)
!145 = !DILocation(line: 95, column: 27, scope: !142)
!146 = !DILocation(line: 95, column: 36, scope: !142)
!147 = !DILocation(line: 95, column: 9, scope: !132)
!148 = !DILocation(line: 96, column: 16, scope: !149)
!149 = distinct !DILexicalBlock(scope: !142, file: !3, line: 95, column: 43)
!150 = !DILocation(line: 97, column: 9, scope: !149)
!151 = !DILocation(line: 98, column: 9, scope: !149)
!152 = !DILocation(line: 100, column: 28, scope: !132)
!153 = !DILocation(line: 100, column: 36, scope: !132)
!154 = !DILocation(line: 100, column: 23, scope: !132)
!155 = !DILocation(line: 100, column: 5, scope: !132)
!156 = !DILocation(line: 101, column: 1, scope: !132)
!157 = distinct !DISubprogram(name: "reset", linkageName: "_ZN10Controller5resetEv", scope: !44, file: !3, line: 72, type: !71, scopeLine: 73, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !70, retainedNodes: !88)
!158 = !DILocalVariable(name: "this", arg: 1, scope: !157, type: !119, flags: DIFlagArtificial | DIFlagObjectPointer)
!159 = !DILocation(line: 0, scope: !157)
!160 = !DILocation(line: 74, column: 15, scope: !157)
!161 = !DILocation(line: 74, column: 9, scope: !157)
!162 = !DILocation(line: 74, column: 13, scope: !157)
!163 = !DILocation(line: 75, column: 16, scope: !157)
!164 = !DILocation(line: 75, column: 9, scope: !157)
!165 = !DILocation(line: 75, column: 14, scope: !157)
!166 = !DILocation(line: 76, column: 5, scope: !157)
!167 = distinct !DISubprogram(name: "step", linkageName: "_ZN10Controller4stepEii", scope: !44, file: !3, line: 61, type: !68, scopeLine: 62, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !67, retainedNodes: !88)
!168 = !DILocalVariable(name: "this", arg: 1, scope: !167, type: !119, flags: DIFlagArtificial | DIFlagObjectPointer)
!169 = !DILocation(line: 0, scope: !167)
!170 = !DILocalVariable(name: "target", arg: 2, scope: !167, file: !3, line: 61, type: !16)
!171 = !DILocation(line: 61, column: 18, scope: !167)
!172 = !DILocalVariable(name: "measured", arg: 3, scope: !167, file: !3, line: 61, type: !16)
!173 = !DILocation(line: 61, column: 30, scope: !167)
!174 = !DILocalVariable(name: "error", scope: !167, file: !3, line: 63, type: !24)
!175 = !DILocation(line: 63, column: 21, scope: !167)
!176 = !DILocation(line: 63, column: 35, scope: !167)
!177 = !DILocation(line: 63, column: 29, scope: !167)
!178 = !DILocation(line: 63, column: 51, scope: !167)
!179 = !DILocation(line: 63, column: 45, scope: !167)
!180 = !DILocation(line: 63, column: 43, scope: !167)
!181 = !DILocation(line: 64, column: 24, scope: !167)
!182 = !DILocation(line: 64, column: 30, scope: !167)
!183 = !DILocation(line: 64, column: 22, scope: !167)
!184 = !DILocation(line: 64, column: 9, scope: !167)
!185 = !DILocation(line: 64, column: 13, scope: !167)
!186 = !DILocation(line: 65, column: 21, scope: !167)
!187 = !DILocation(line: 65, column: 32, scope: !167)
!188 = !DILocation(line: 65, column: 39, scope: !167)
!189 = !DILocation(line: 65, column: 26, scope: !167)
!190 = !DILocation(line: 65, column: 51, scope: !167)
!191 = !DILocation(line: 65, column: 58, scope: !167)
!192 = !DILocation(line: 65, column: 45, scope: !167)
!193 = !DILocation(line: 65, column: 15, scope: !167)
!194 = !DILocation(line: 65, column: 9, scope: !167)
!195 = !DILocation(line: 65, column: 13, scope: !167)
!196 = !DILocalVariable(name: "change", scope: !167, file: !3, line: 66, type: !24)
!197 = !DILocation(line: 66, column: 21, scope: !167)
!198 = !DILocation(line: 66, column: 38, scope: !167)
!199 = !DILocation(line: 66, column: 36, scope: !167)
!200 = !DILocation(line: 67, column: 9, scope: !167)
!201 = !DILocation(line: 67, column: 14, scope: !167)
!202 = !DILocalVariable(name: "drive", scope: !167, file: !3, line: 68, type: !24)
!203 = !DILocation(line: 68, column: 21, scope: !167)
!204 = !DILocation(line: 68, column: 37, scope: !167)
!205 = !DILocation(line: 68, column: 43, scope: !167)
!206 = !DILocation(line: 68, column: 35, scope: !167)
!207 = !DILocation(line: 68, column: 58, scope: !167)
!208 = !DILocation(line: 68, column: 56, scope: !167)
!209 = !DILocation(line: 68, column: 73, scope: !167)
!210 = !DILocation(line: 68, column: 79, scope: !167)
!211 = !DILocation(line: 68, column: 71, scope: !167)
!212 = !DILocation(line: 68, column: 62, scope: !167)
!213 = !DILocation(line: 69, column: 28, scope: !167)
!214 = !DILocation(line: 69, column: 22, scope: !167)
!215 = !DILocation(line: 69, column: 37, scope: !167)
!216 = !DILocation(line: 69, column: 44, scope: !167)
!217 = !DILocation(line: 69, column: 49, scope: !167)
!218 = !DILocation(line: 69, column: 56, scope: !167)
!219 = !DILocation(line: 69, column: 16, scope: !167)
!220 = !DILocation(line: 69, column: 9, scope: !167)
!221 = distinct !DISubprogram(name: "Fixed", linkageName: "_ZN5FixedC2Ev", scope: !5, file: !3, line: 8, type: !10, scopeLine: 8, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !9, retainedNodes: !88)
!222 = !DILocalVariable(name: "this", arg: 1, scope: !221, type: !96, flags: DIFlagArtificial | DIFlagObjectPointer)
!223 = !DILocation(line: 0, scope: !221)
!224 = !DILocation(line: 8, column: 15, scope: !221)
!225 = !DILocation(line: 8, column: 23, scope: !221)
!226 = distinct !DISubprogram(name: "operator-", linkageName: "_ZNK5FixedmiERKS_", scope: !5, file: !3, line: 19, type: !21, scopeLine: 19, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !26, retainedNodes: !88)
!227 = !DILocalVariable(name: "this", arg: 1, scope: !226, type: !228, flags: DIFlagArtificial | DIFlagObjectPointer)
!228 = !DIDerivedType(tag: DW_TAG_pointer_type, baseType: !24, size: 16)
!229 = !DILocation(line: 0, scope: !226)
!230 = !DILocalVariable(name: "other", arg: 2, scope: !226, file: !3, line: 19, type: !25)
!231 = !DILocation(line: 19, column: 34, scope: !226)
!232 = !DILocation(line: 19, column: 65, scope: !226)
!233 = !DILocation(line: 19, column: 71, scope: !226)
!234 = !DILocation(line: 19, column: 77, scope: !226)
!235 = !DILocation(line: 19, column: 69, scope: !226)
!236 = !DILocation(line: 19, column: 56, scope: !226)
!237 = !DILocation(line: 19, column: 49, scope: !226)
!238 = distinct !DISubprogram(name: "operator*", linkageName: "_ZNK5FixedmlERKS_", scope: !5, file: !3, line: 21, type: !21, scopeLine: 21, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !30, retainedNodes: !88)
!239 = !DILocalVariable(name: "this", arg: 1, scope: !238, type: !228, flags: DIFlagArtificial | DIFlagObjectPointer)
!240 = !DILocation(line: 0, scope: !238)
!241 = !DILocalVariable(name: "other", arg: 2, scope: !238, file: !3, line: 21, type: !25)
!242 = !DILocation(line: 21, column: 34, scope: !238)
!243 = !DILocation(line: 21, column: 66, scope: !238)
!244 = !DILocation(line: 21, column: 72, scope: !238)
!245 = !DILocation(line: 21, column: 78, scope: !238)
!246 = !DILocation(line: 21, column: 70, scope: !238)
!247 = !DILocation(line: 21, column: 83, scope: !238)
!248 = !DILocation(line: 21, column: 56, scope: !238)
!249 = !DILocation(line: 21, column: 49, scope: !238)
!250 = distinct !DISubprogram(name: "operator+=", linkageName: "_ZN5FixedpLERKS_", scope: !5, file: !3, line: 23, type: !33, scopeLine: 24, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !32, retainedNodes: !88)
!251 = !DILocalVariable(name: "this", arg: 1, scope: !250, type: !96, flags: DIFlagArtificial | DIFlagObjectPointer)
!252 = !DILocation(line: 0, scope: !250)
!253 = !DILocalVariable(name: "other", arg: 2, scope: !250, file: !3, line: 23, type: !25)
!254 = !DILocation(line: 23, column: 36, scope: !250)
!255 = !DILocation(line: 25, column: 16, scope: !250)
!256 = !DILocation(line: 25, column: 22, scope: !250)
!257 = !DILocation(line: 25, column: 9, scope: !250)
!258 = !DILocation(line: 25, column: 13, scope: !250)
!259 = !DILocation(line: 26, column: 9, scope: !250)
!260 = distinct !DISubprogram(name: "clamp<Fixed>", linkageName: "_Z5clampI5FixedET_RKS1_S3_S3_", scope: !3, file: !3, line: 37, type: !261, scopeLine: 38, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, templateParams: !263, retainedNodes: !88)
!261 = !DISubroutineType(types: !262)
!262 = !{!5, !25, !25, !25}
!263 = !{!264}
!264 = !DITemplateTypeParameter(name: "T", type: !5)
!265 = !DILocalVariable(name: "value", arg: 1, scope: !260, file: !3, line: 37, type: !25)
!266 = !DILocation(line: 37, column: 40, scope: !260)
!267 = !DILocalVariable(name: "low", arg: 2, scope: !260, file: !3, line: 37, type: !25)
!268 = !DILocation(line: 37, column: 56, scope: !260)
!269 = !DILocalVariable(name: "high", arg: 3, scope: !260, file: !3, line: 37, type: !25)
!270 = !DILocation(line: 37, column: 70, scope: !260)
!271 = !DILocation(line: 39, column: 9, scope: !272)
!272 = distinct !DILexicalBlock(scope: !260, file: !3, line: 39, column: 9)
!273 = !DILocation(line: 39, column: 17, scope: !272)
!274 = !DILocation(line: 39, column: 15, scope: !272)
!275 = !DILocation(line: 39, column: 9, scope: !260)
!276 = !DILocation(line: 40, column: 16, scope: !272)
!277 = !DILocation(line: 40, column: 9, scope: !272)
!278 = !DILocation(line: 41, column: 9, scope: !279)
!279 = distinct !DILexicalBlock(scope: !260, file: !3, line: 41, column: 9)
!280 = !DILocation(line: 41, column: 17, scope: !279)
!281 = !DILocation(line: 41, column: 15, scope: !279)
!282 = !DILocation(line: 41, column: 9, scope: !260)
!283 = !DILocation(line: 42, column: 16, scope: !279)
!284 = !DILocation(line: 42, column: 9, scope: !279)
!285 = !DILocation(line: 43, column: 12, scope: !260)
!286 = !DILocation(line: 43, column: 5, scope: !260)
!287 = !DILocation(line: 44, column: 1, scope: !260)
!288 = distinct !DISubprogram(name: "operator+", linkageName: "_ZNK5FixedplERKS_", scope: !5, file: !3, line: 18, type: !21, scopeLine: 18, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !20, retainedNodes: !88)
!289 = !DILocalVariable(name: "this", arg: 1, scope: !288, type: !228, flags: DIFlagArtificial | DIFlagObjectPointer)
!290 = !DILocation(line: 0, scope: !288)
!291 = !DILocalVariable(name: "other", arg: 2, scope: !288, file: !3, line: 18, type: !25)
!292 = !DILocation(line: 18, column: 34, scope: !288)
!293 = !DILocation(line: 18, column: 65, scope: !288)
!294 = !DILocation(line: 18, column: 71, scope: !288)
!295 = !DILocation(line: 18, column: 77, scope: !288)
!296 = !DILocation(line: 18, column: 69, scope: !288)
!297 = !DILocation(line: 18, column: 56, scope: !288)
!298 = !DILocation(line: 18, column: 49, scope: !288)
!299 = distinct !DISubprogram(name: "clamp<int>", linkageName: "_Z5clampIiET_RKS0_S2_S2_", scope: !3, file: !3, line: 37, type: !300, scopeLine: 38, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, templateParams: !303, retainedNodes: !88)
!300 = !DISubroutineType(types: !301)
!301 = !{!16, !302, !302, !302}
!302 = !DIDerivedType(tag: DW_TAG_reference_type, baseType: !138, size: 16)
!303 = !{!304}
!304 = !DITemplateTypeParameter(name: "T", type: !16)
!305 = !DILocalVariable(name: "value", arg: 1, scope: !299, file: !3, line: 37, type: !302)
!306 = !DILocation(line: 37, column: 40, scope: !299)
!307 = !DILocalVariable(name: "low", arg: 2, scope: !299, file: !3, line: 37, type: !302)
!308 = !DILocation(line: 37, column: 56, scope: !299)
!309 = !DILocalVariable(name: "high", arg: 3, scope: !299, file: !3, line: 37, type: !302)
!310 = !DILocation(line: 37, column: 70, scope: !299)
!311 = !DILocation(line: 39, column: 9, scope: !312)
!312 = distinct !DILexicalBlock(scope: !299, file: !3, line: 39, column: 9)
!313 = !DILocation(line: 39, column: 17, scope: !312)
!314 = !DILocation(line: 39, column: 15, scope: !312)
!315 = !DILocation(line: 39, column: 9, scope: !299)
!316 = !DILocation(line: 40, column: 16, scope: !312)
!317 = !DILocation(line: 40, column: 9, scope: !312)
!318 = !DILocation(line: 41, column: 9, scope: !319)
!319 = distinct !DILexicalBlock(scope: !299, file: !3, line: 41, column: 9)
!320 = !DILocation(line: 41, column: 17, scope: !319)
!321 = !DILocation(line: 41, column: 15, scope: !319)
!322 = !DILocation(line: 41, column: 9, scope: !299)
!323 = !DILocation(line: 42, column: 16, scope: !319)
!324 = !DILocation(line: 42, column: 9, scope: !319)
!325 = !DILocation(line: 43, column: 12, scope: !299)
!326 = !DILocation(line: 43, column: 5, scope: !299)
!327 = !DILocation(line: 44, column: 1, scope: !299)
!328 = distinct !DISubprogram(name: "whole", linkageName: "_ZNK5Fixed5wholeEv", scope: !5, file: !3, line: 31, type: !42, scopeLine: 31, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !41, retainedNodes: !88)
!329 = !DILocalVariable(name: "this", arg: 1, scope: !328, type: !228, flags: DIFlagArtificial | DIFlagObjectPointer)
!330 = !DILocation(line: 0, scope: !328)
!331 = !DILocation(line: 31, column: 32, scope: !328)
!332 = !DILocation(line: 31, column: 36, scope: !328)
!333 = !DILocation(line: 31, column: 25, scope: !328)
!334 = distinct !DISubprogram(name: "operator<", linkageName: "_ZNK5FixedltERKS_", scope: !5, file: !3, line: 28, type: !37, scopeLine: 28, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !36, retainedNodes: !88)
!335 = !DILocalVariable(name: "this", arg: 1, scope: !334, type: !228, flags: DIFlagArtificial | DIFlagObjectPointer)
!336 = !DILocation(line: 0, scope: !334)
!337 = !DILocalVariable(name: "other", arg: 2, scope: !334, file: !3, line: 28, type: !25)
!338 = !DILocation(line: 28, column: 33, scope: !334)
!339 = !DILocation(line: 28, column: 55, scope: !334)
!340 = !DILocation(line: 28, column: 61, scope: !334)
!341 = !DILocation(line: 28, column: 67, scope: !334)
!342 = !DILocation(line: 28, column: 59, scope: !334)
!343 = !DILocation(line: 28, column: 48, scope: !334)
!344 = distinct !DISubprogram(name: "operator>", linkageName: "_ZNK5FixedgtERKS_", scope: !5, file: !3, line: 29, type: !37, scopeLine: 29, flags: DIFlagPrototyped, spFlags: DISPFlagDefinition, unit: !2, declaration: !40, retainedNodes: !88)
!345 = !DILocalVariable(name: "this", arg: 1, scope: !344, type: !228, flags: DIFlagArtificial | DIFlagObjectPointer)
!346 = !DILocation(line: 0, scope: !344)
!347 = !DILocalVariable(name: "other", arg: 2, scope: !344, file: !3, line: 29, type: !25)
!348 = !DILocation(line: 29, column: 33, scope: !344)
!349 = !DILocation(line: 29, column: 55, scope: !344)
!350 = !DILocation(line: 29, column: 61, scope: !344)
!351 = !DILocation(line: 29, column: 67, scope: !344)
!352 = !DILocation(line: 29, column: 59, scope: !344)
!353 = !DILocation(line: 29, column: 48, scope: !344)
!354 = distinct !DISubprogram(linkageName: "_GLOBAL__sub_I_control.cpp", scope: !85, file: !85, type: !355, flags: DIFlagArtificial, spFlags: DISPFlagLocalToUnit | DISPFlagDefinition, unit: !2, retainedNodes: !88)
!355 = !DISubroutineType(types: !88)
!356 = !DILocation(line: 0, scope: !354)
